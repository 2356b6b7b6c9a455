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

/// A client of a JACK server with one MIDI output port, for as long as that server lives.
class JackSession {
public:
    /// Nothing when no server answers.
    static std::unique_ptr<JackSession> open();
    ~JackSession();
    JackSession(const JackSession&) = delete;
    JackSession& operator=(const JackSession&) = delete;

    /// Whether the server is still there.
    bool isAlive() const { return !m_serverGone; }
    jack_client_t* client() const { return m_client; }

    /// Leads what is sent from now on to that port and no longer to the one before. Returns when
    /// the server has taken the change over, so that the next message is not lost to it.
    void connectTo(const std::string& portName);
    /// Whether what is sent now reaches the port that connectTo() named last.
    bool isConnected() const { return isAlive() && isConnectedTo(m_connected); }

    /// Hands a whole message, 255 bytes at most, to the server's next period. One that finds no
    /// room, as with a server that hangs, is lost: false.
    bool write(std::span<const std::uint8_t> message);

private:
    explicit JackSession(jack_client_t* client);
    int process(jack_nframes_t frames);
    bool isConnectedTo(const std::string& portName) const;
    /// False when none comes: the server hangs or is gone.
    bool awaitPeriod();
    void awaitEmptyQueue();
    void awaitConnectionTo(const std::string& portName);

    struct RingCloser {
        void operator()(jack_ringbuffer_t* ring) const { jack_ringbuffer_free(ring); }
    };

    jack_client_t* m_client;
    jack_port_t* m_output = nullptr;
    std::string m_connected;
    /// Each message follows one byte that tells its length.
    std::unique_ptr<jack_ringbuffer_t, RingCloser> m_queue;
    std::atomic<bool> m_serverGone = false;
    std::atomic<bool> m_periodAwaited = false;
    std::counting_semaphore<> m_period{0};
};

} // namespace vexa
