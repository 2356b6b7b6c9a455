#include "generator/alsa_input.h"

#include <alsa/asoundlib.h>

#include <cerrno>

namespace vexa {

namespace {
struct CloseSequencer {
    void operator()(snd_seq_t* sequencer) const { snd_seq_close(sequencer); }
};
using Sequencer = std::unique_ptr<snd_seq_t, CloseSequencer>;

class AlsaInput : public MidiInput {
public:
    AlsaInput(Sequencer sequencer, int descriptor)
        : m_sequencer(std::move(sequencer)), m_descriptor(descriptor) {}

    std::string name() const override { return generatorName; }
    int descriptor() const override { return m_descriptor; }
    Outcome read(const Receiver& receiver) override;

private:
    Sequencer m_sequencer;
    int m_descriptor;
};

MidiInput::Outcome AlsaInput::read(const Receiver& receiver) {
    while (true) {
        snd_seq_event_t* event = nullptr;
        const int result = snd_seq_event_input(m_sequencer.get(), &event);
        if (result == -EAGAIN)
            return Outcome::Read;
        if (result == -ENOSPC)
            return Outcome::Lost;
        if (result < 0)
            return Outcome::Gone;
        if (event->type == SND_SEQ_EVENT_SYSEX) {
            const auto& data = event->data.ext;
            receiver(std::chrono::steady_clock::now(),
                     {static_cast<const std::uint8_t*>(data.ptr), data.len});
        }
    }
}

/// alsa-lib's own words about a sequencer that is not there would add nothing to ours.
void ignoreMessage(const char*, int, const char*, int, const char*, ...) {}
} // namespace

std::unique_ptr<MidiInput> openAlsaInput() {
    snd_lib_error_set_handler(ignoreMessage);
    snd_seq_t* handle = nullptr;
    if (snd_seq_open(&handle, "default", SND_SEQ_OPEN_INPUT, SND_SEQ_NONBLOCK) < 0)
        return nullptr;
    Sequencer sequencer(handle);
    pollfd descriptor{};
    if (snd_seq_set_client_name(handle, generatorName) < 0 ||
        snd_seq_create_simple_port(
            handle, generatorName, SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE,
            SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION) < 0 ||
        snd_seq_poll_descriptors(handle, &descriptor, 1, POLLIN) != 1)
        return nullptr;
    return std::make_unique<AlsaInput>(std::move(sequencer), descriptor.fd);
}

} // namespace vexa
