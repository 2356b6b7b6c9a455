#include "generator/jack_input.h"

#include <jack/jack.h>
#include <jack/midiport.h>
#include <jack/ringbuffer.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <vector>

namespace vexa {

namespace {
constexpr std::size_t bufferSize = 65536;

/// Stands before the bytes of each event in the ring buffer.
struct EventHeader {
    jack_time_t time; ///< when it arrived by the server's count of frames, see jack_get_time()
    std::size_t size;
};

struct FreeRingBuffer {
    void operator()(jack_ringbuffer_t* buffer) const { jack_ringbuffer_free(buffer); }
};
struct CloseClient {
    void operator()(jack_client_t* client) const { jack_client_close(client); }
};

class JackInput : public MidiInput {
public:
    explicit JackInput(jack_client_t* client);
    ~JackInput() override;

    /// Makes the port and lets events in.
    bool activate();

    std::string name() const override { return jack_get_client_name(m_client.get()); }
    int descriptor() const override { return m_wakeUp; }
    Outcome read(const Receiver& receiver) override;

private:
    void process(jack_nframes_t frames);
    void store(const jack_midi_event_t& event);
    void wakeUp();

    std::unique_ptr<jack_ringbuffer_t, FreeRingBuffer> m_events;
    int m_wakeUp; ///< an eventfd that JACK's threads write to
    std::atomic<bool> m_lost = false;
    std::atomic<bool> m_gone = false;
    jack_port_t* m_port = nullptr;
    std::vector<std::uint8_t> m_bytes; ///< of the event being read
    /// Last, so that JACK's threads are gone before anything they use.
    std::unique_ptr<jack_client_t, CloseClient> m_client;
};

JackInput::JackInput(jack_client_t* client)
    : m_events(jack_ringbuffer_create(bufferSize)),
      m_wakeUp(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      m_client(client) {}

JackInput::~JackInput() {
    m_client.reset();
    close(m_wakeUp);
}

bool JackInput::activate() {
    if (!m_events || m_wakeUp < 0)
        return false;
    jack_ringbuffer_mlock(m_events.get());
    jack_on_shutdown(
        m_client.get(),
        [](void* self) {
            static_cast<JackInput*>(self)->m_gone = true;
            static_cast<JackInput*>(self)->wakeUp();
        },
        this);
    const auto process = [](jack_nframes_t frames, void* self) {
        static_cast<JackInput*>(self)->process(frames);
        return 0;
    };
    m_port = jack_port_register(m_client.get(), "in", JACK_DEFAULT_MIDI_TYPE,
                                JackPortIsInput | JackPortIsTerminal, 0);
    return m_port && jack_set_process_callback(m_client.get(), process, this) == 0 &&
           jack_activate(m_client.get()) == 0;
}

void JackInput::process(jack_nframes_t frames) {
    void* const buffer = jack_port_get_buffer(m_port, frames);
    const auto count = jack_midi_get_event_count(buffer);
    for (std::uint32_t i = 0; i < count; ++i) {
        jack_midi_event_t event;
        if (jack_midi_event_get(&event, buffer, i) == 0)
            store(event);
    }
    if (jack_midi_get_lost_event_count(buffer) > 0)
        m_lost = true;
    if (count > 0)
        wakeUp();
}

void JackInput::store(const jack_midi_event_t& event) {
    const auto frame = jack_last_frame_time(m_client.get()) + event.time;
    const EventHeader header{jack_frames_to_time(m_client.get(), frame), event.size};
    if (jack_ringbuffer_write_space(m_events.get()) < sizeof header + event.size) {
        m_lost = true;
        return;
    }
    jack_ringbuffer_write(m_events.get(), reinterpret_cast<const char*>(&header), sizeof header);
    jack_ringbuffer_write(m_events.get(), reinterpret_cast<const char*>(event.buffer), event.size);
}

void JackInput::wakeUp() {
    // Fails only when a wake-up is pending already.
    eventfd_write(m_wakeUp, 1);
}

MidiInput::Outcome JackInput::read(const Receiver& receiver) {
    eventfd_t wakeUps = 0;
    eventfd_read(m_wakeUp, &wakeUps);
    const bool gone = m_gone;
    const bool lost = m_lost.exchange(false);
    // The server's clock need not be ours: jackd runs on CLOCK_MONOTONIC_RAW, a few hundred
    // milliseconds and some parts per million away.
    const auto jackEpoch =
        std::chrono::steady_clock::now() - std::chrono::microseconds(jack_get_time());
    EventHeader header{};
    auto* const asBytes = reinterpret_cast<char*>(&header);
    while (jack_ringbuffer_peek(m_events.get(), asBytes, sizeof header) == sizeof header &&
           jack_ringbuffer_read_space(m_events.get()) >= sizeof header + header.size) {
        jack_ringbuffer_read_advance(m_events.get(), sizeof header);
        m_bytes.resize(header.size);
        jack_ringbuffer_read(m_events.get(), reinterpret_cast<char*>(m_bytes.data()), header.size);
        receiver(jackEpoch + std::chrono::microseconds(header.time), m_bytes);
    }
    if (gone)
        return Outcome::Gone;
    return lost ? Outcome::Lost : Outcome::Read;
}

void ignoreMessage(const char*) {}
} // namespace

std::unique_ptr<MidiInput> openJackInput() {
    jack_set_error_function(ignoreMessage);
    jack_set_info_function(ignoreMessage);
    auto* const client = jack_client_open(generatorName, JackNoStartServer, nullptr);
    if (!client)
        return nullptr;
    auto input = std::make_unique<JackInput>(client);
    if (!input->activate())
        return nullptr;
    return input;
}

} // namespace vexa
