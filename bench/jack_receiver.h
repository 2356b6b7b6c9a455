#pragma once

#include <jack/jack.h>

#include <sys/types.h>

#include <functional>
#include <string>

namespace vexa::bench {

/// The benchmark's own JACK server, without sound hardware. It becomes this process's default
/// server.
class JackServer {
public:
    static constexpr int sampleRate = 48000;
    static constexpr int period = 256; ///< in samples

    JackServer();
    ~JackServer();
    JackServer(const JackServer&) = delete;
    JackServer& operator=(const JackServer&) = delete;

    /// Waits for an answer; returns false if there is none.
    bool isUp() const;

private:
    pid_t m_process = 0;
};

/// A client with one MIDI input.
class JackReceiver {
public:
    /// received: called on JACK's thread for each message as it arrives; must not wait.
    explicit JackReceiver(std::function<void()> received);
    ~JackReceiver();
    JackReceiver(const JackReceiver&) = delete;
    JackReceiver& operator=(const JackReceiver&) = delete;

private:
    std::function<void()> m_received;
    jack_client_t* m_client;
    jack_port_t* m_port;
};

} // namespace vexa::bench
