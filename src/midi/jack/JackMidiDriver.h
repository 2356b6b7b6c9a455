#pragma once

#include "midi/MidiDriver.h"
#include "midi/TwinNumbers.h"
#include "midi/jack/JackSession.h"

#include <memory>

namespace vexa {

/// The JACK server, which others start. When the server goes away, the driver joins the next one.
class JackMidiDriver final : public MidiDriver {
public:
    std::vector<MidiPort> ports() override;
    bool send(const std::string& identity, std::span<const std::uint8_t> message) override;
    bool maintain() override;

private:
    bool join();
    bool connectTo(const std::string& identity);

    std::unique_ptr<JackSession> m_session;
    int m_sessions = 0; ///< number of sessions tried
    TwinNumbers m_twins;
    std::string m_identity; ///< of the last message's port
};

} // namespace vexa
