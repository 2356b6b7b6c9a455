#include "generator/alsa_unit.h"

#include <alsa/asoundlib.h>

#include <cerrno>
#include <span>

namespace vexa {

namespace {
struct CloseSequencer {
    void operator()(snd_seq_t* sequencer) const { snd_seq_close(sequencer); }
};
using Sequencer = std::unique_ptr<snd_seq_t, CloseSequencer>;

class AlsaUnit : public Unit {
public:
    AlsaUnit(Sequencer sequencer, int descriptor)
        : m_sequencer(std::move(sequencer)), m_descriptor(descriptor) {}

    std::string name() const override { return generatorName; }
    int descriptor() const override { return m_descriptor; }
    bool read(Listener& listener) override;
    void finish(Listener& listener) override;
    SignalStatus signal() const override { return {}; }

private:
    void take(const SysEx& message, Listener& listener);

    Sequencer m_sequencer;
    int m_descriptor;
    SysExReader m_reader;
    GeneratorState m_state;
};

bool AlsaUnit::read(Listener& listener) {
    while (true) {
        snd_seq_event_t* event = nullptr;
        const int result = snd_seq_event_input(m_sequencer.get(), &event);
        if (result == -EAGAIN)
            return true;
        if (result == -ENOSPC) {
            // What follows a gap is not the rest of what came before it.
            finish(listener);
            listener.noted(std::chrono::steady_clock::now(),
                           "lost: messages came faster than they could be read");
            continue;
        }
        if (result < 0)
            return false;
        if (event->type == SND_SEQ_EVENT_SYSEX) {
            const auto& data = event->data.ext;
            for (const auto byte : std::span(static_cast<const std::uint8_t*>(data.ptr), data.len))
                if (const auto message = m_reader.take(byte))
                    take(*message, listener);
        }
    }
}

void AlsaUnit::take(const SysEx& message, Listener& listener) {
    const auto reply = m_state.take(decodedFrame(message));
    listener.happened({std::chrono::steady_clock::now(), message, reply, m_state, {}, 0});
}

void AlsaUnit::finish(Listener& listener) {
    if (const auto message = m_reader.finish())
        take(*message, listener);
}

/// alsa-lib's own words about a sequencer that is not there would add nothing to ours.
void ignoreMessage(const char*, int, const char*, int, const char*, ...) {}
} // namespace

std::unique_ptr<Unit> openAlsaUnit() {
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
    return std::make_unique<AlsaUnit>(std::move(sequencer), descriptor.fd);
}

} // namespace vexa
