#include "generator/jack_input.h"

#include <jack/jack.h>
#include <jack/midiport.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <vector>

namespace vexa {

namespace {
constexpr std::size_t ringSize = 16384;

struct ReceivedByte {
    jack_time_t arrival; ///< by the server's count of frames, on the clock of jack_get_time()
    std::uint8_t byte;
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

    /// Written by the process callback, read by read(). The counts only grow; what lies between
    /// them is unread.
    std::vector<ReceivedByte> m_ring = std::vector<ReceivedByte>(ringSize);
    std::atomic<std::size_t> m_written = 0;
    std::atomic<std::size_t> m_read = 0;
    int m_wakeUp; ///< an eventfd that JACK's threads write to
    std::atomic<bool> m_lost = false;
    std::atomic<bool> m_gone = false;
    jack_port_t* m_port = nullptr;
    std::unique_ptr<jack_client_t, CloseClient> m_client;
};

JackInput::JackInput(jack_client_t* client)
    : m_wakeUp(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)), m_client(client) {}

JackInput::~JackInput() {
    m_client.reset();
    close(m_wakeUp);
}

bool JackInput::activate() {
    if (m_wakeUp < 0)
        return false;
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
    const auto arrival = jack_frames_to_time(m_client.get(), frame);
    const auto written = m_written.load();
    if (ringSize - (written - m_read) < event.size) {
        m_lost = true;
        return;
    }
    for (std::size_t i = 0; i < event.size; ++i)
        m_ring[(written + i) % ringSize] = {arrival, event.buffer[i]};
    m_written = written + event.size;
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
    for (const auto written = m_written.load(); m_read != written; ++m_read) {
        const auto& [arrival, byte] = m_ring[m_read % ringSize];
        receiver(jackEpoch + std::chrono::microseconds(arrival), {&byte, 1});
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
    // A busy server can miss its own sign that a client has come or joined and, five seconds later,
    // refuse it: the next attempt is as good as the first.
    jack_status_t status{};
    for (int attempts = 0; attempts < 3 && !(status & JackServerFailed); ++attempts) {
        auto* const client = jack_client_open(generatorName, JackNoStartServer, &status);
        if (!client)
            continue;
        auto input = std::make_unique<JackInput>(client);
        if (input->activate())
            return input;
    }
    return nullptr;
}

} // namespace vexa
