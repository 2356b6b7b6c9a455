#pragma once

#include <jack/jack.h>
#include <jack/ringbuffer.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <semaphore>
#include <span>
#include <string>

namespace vexa {

/// A JACK client with one MIDI output port. Usable while its server runs.
class JackSession {
public:
    /// Null if no server answers.
    static std::unique_ptr<JackSession> open();
    ~JackSession();
    JackSession(const JackSession&) = delete;
    JackSession& operator=(const JackSession&) = delete;

    /// Whether the server is still running.
    bool isAlive() const { return !m_serverGone; }
    jack_client_t* client() const { return m_client; }

    /// Connects the output to this port instead of the previous one. Returns true once the server
    /// has made the change, so the next message is not lost. Returns false if the port is gone, or
    /// if the server hangs: then the previous port stays connected, as its messages still wait.
    bool connectTo(const std::string& portName);
    /// Whether messages now reach the connected port.
    bool isConnected() const { return isAlive() && isConnectedTo(m_connected); }

    /// Queues a whole message, 255 bytes at most, for the server's next period. If there is no
    /// room, as when the server hangs, drops it and returns false.
    bool write(std::span<const std::uint8_t> message);

private:
    explicit JackSession(jack_client_t* client);
    int process(jack_nframes_t frames);
    bool isConnectedTo(const std::string& portName) const;
    /// False if no period comes: the server hangs or is gone.
    bool awaitPeriod();
    /// False if messages may still wait for a period.
    bool awaitEmptyQueue();
    bool awaitConnection();

    struct RingCloser {
        void operator()(jack_ringbuffer_t* ring) const { jack_ringbuffer_free(ring); }
    };

    jack_client_t* m_client;
    jack_port_t* m_output = nullptr;
    std::string m_connected;
    /// A length byte precedes each message.
    std::unique_ptr<jack_ringbuffer_t, RingCloser> m_queue;
    std::atomic<bool> m_serverGone = false;
    std::atomic<bool> m_periodAwaited = false;
    std::counting_semaphore<> m_period{0};
};

} // namespace vexa
