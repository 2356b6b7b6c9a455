#pragma once

#include "midi/MidiDriver.h"
#include "midi/TwinNumbers.h"

#include <alsa/asoundlib.h>

#include <memory>

namespace vexa {

/// The ALSA sequencer of the Linux kernel.
class AlsaMidiDriver final : public MidiDriver {
public:
    /// Whether this machine has a sequencer that can be opened.
    static bool isAvailable();

    std::vector<MidiPort> ports() override;
    bool send(const std::string& identity, std::span<const std::uint8_t> message) override;
    bool maintain() override;

private:
    struct Closer {
        void operator()(snd_seq_t* sequencer) const { snd_seq_close(sequencer); }
    };
    using Sequencer = std::unique_ptr<snd_seq_t, Closer>;

    /// A client of ours whose output port is subscribed to one destination. The subscription opens
    /// a hardware port; the system ends it when the destination goes away.
    struct Link {
        Sequencer sequencer;
        int port = -1;
        std::string identity;
        snd_seq_addr_t destination{};
    };

    static Sequencer open();
    bool isLinked() const;
    void linkTo(std::string identity);

    Sequencer m_lister; ///< a separate client, so listing works without a link
    Link m_link;
    TwinNumbers m_twins;
};

} // namespace vexa
