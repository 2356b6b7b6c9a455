#pragma once

#include "midi/MidiDriver.h"
#include "midi/TwinNumbers.h"
#include "midi/jack/JackSession.h"

#include <memory>

namespace vexa {

/// The JACK server that somebody else has started or will start. When it goes away and a new one
/// comes, that one is joined.
class JackMidiDriver final : public MidiDriver {
public:
    std::vector<MidiPort> ports() override;
    bool send(const std::string& identity, std::span<const std::uint8_t> message) override;
    bool maintain() override;

private:
    bool join();
    bool connectTo(const std::string& identity);

    std::unique_ptr<JackSession> m_session;
    int m_sessions = 0; ///< how many were tried
    TwinNumbers m_twins;
    std::string m_identity; ///< of the port that messages last went to
};

} // namespace vexa
