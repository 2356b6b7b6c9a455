#include "midi/jack/JackSession.h"

#include "jack_server/opened_on_jack.h"
#include "midi/MidiDriver.h"

#include <jack/midiport.h>

#include <cerrno>
#include <chrono>

namespace vexa {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t queueBytes = 65536;
constexpr auto longestPeriod = 5s; // a server waits this long for a slow client

} // namespace

std::unique_ptr<JackSession> JackSession::open() {
    return openedOnJack(midiClientName, [](jack_client_t* client) {
        std::unique_ptr<JackSession> session(new JackSession(client));
        return session->m_output && jack_activate(client) == 0 ? std::move(session) : nullptr;
    });
}

JackSession::JackSession(jack_client_t* client)
    : m_client(client),
      m_output(jack_port_register(client, midiOutputPortName, JACK_DEFAULT_MIDI_TYPE,
                                  JackPortIsOutput, 0)),
      m_queue(jack_ringbuffer_create(queueBytes)) {
    // The callbacks run on threads of the JACK library. They must neither wait nor allocate.
    jack_set_process_callback(
        client,
        [](jack_nframes_t frames, void* self) {
            return static_cast<JackSession*>(self)->process(frames);
        },
        this);
    jack_on_shutdown(
        client,
        [](void* self) {
            static_cast<JackSession*>(self)->m_serverGone = true;
            static_cast<JackSession*>(self)->m_period.release(); // wakes a waiting thread
        },
        this);
}

JackSession::~JackSession() {
    if (!m_connected.empty())
        awaitEmptyQueue();
    jack_client_close(m_client);
}

int JackSession::process(jack_nframes_t frames) {
    void* buffer = jack_port_get_buffer(m_output, frames);
    jack_midi_clear_buffer(buffer);
    std::uint8_t length = 0;
    while (jack_ringbuffer_peek(m_queue.get(), reinterpret_cast<char*>(&length), 1) == 1) {
        if (jack_ringbuffer_read_space(m_queue.get()) < 1u + length)
            break;
        auto* event = jack_midi_event_reserve(buffer, 0, length);
        if (!event)
            break; // the period is full; the rest follows in the next
        jack_ringbuffer_read_advance(m_queue.get(), 1);
        jack_ringbuffer_read(m_queue.get(), reinterpret_cast<char*>(event), length);
    }
    if (m_periodAwaited.exchange(false))
        m_period.release();
    return 0;
}

bool JackSession::awaitPeriod() {
    m_periodAwaited = true;
    if (isAlive() && m_period.try_acquire_for(longestPeriod))
        return isAlive();
    if (!m_periodAwaited.exchange(false))
        m_period.acquire(); // the period came after all; it must not count for the next wait
    return false;
}

bool JackSession::awaitEmptyQueue() {
    while (jack_ringbuffer_read_space(m_queue.get()) > 0)
        if (!awaitPeriod())
            return false;
    return awaitPeriod(); // the period that took the last message may still be running
}

bool JackSession::isConnectedTo(const std::string& portName) const {
    return jack_port_connected_to(m_output, portName.c_str());
}

bool JackSession::connectTo(const std::string& portName) {
    if (portName == m_connected && isConnectedTo(portName))
        return true;
    // What waits belongs to the previous port. A server without periods may not answer requests.
    if (!awaitEmptyQueue())
        return false;
    const auto* ours = jack_port_name(m_output);
    if (portName != m_connected && !m_connected.empty())
        jack_disconnect(m_client, ours, m_connected.c_str());
    m_connected = portName;
    const int error = jack_connect(m_client, ours, portName.c_str());
    return (error == 0 || error == EEXIST) && awaitConnection();
}

bool JackSession::awaitConnection() {
    // The server connects when all its clients have finished a period, however many begin until
    // then. Messages sent earlier are lost.
    const auto deadline = std::chrono::steady_clock::now() + longestPeriod;
    while (!isConnectedTo(m_connected)) {
        const bool isListed = jack_port_by_name(m_client, m_connected.c_str());
        if (!isListed || std::chrono::steady_clock::now() > deadline || !awaitPeriod())
            return false;
    }
    return awaitPeriod(); // a period that began before the change may still be running
}

bool JackSession::write(std::span<const std::uint8_t> message) {
    const auto length = static_cast<std::uint8_t>(message.size());
    if (jack_ringbuffer_write_space(m_queue.get()) < 1u + length)
        return false;
    jack_ringbuffer_write(m_queue.get(), reinterpret_cast<const char*>(&length), 1);
    jack_ringbuffer_write(m_queue.get(), reinterpret_cast<const char*>(message.data()), length);
    return true;
}

} // namespace vexa
