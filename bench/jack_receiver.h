#pragma once

#include <jack/jack.h>

#include <sys/types.h>

#include <functional>
#include <string>

namespace vexa::bench {

/// A JACK server of the benchmark's own, without sound hardware, which from then on is the
/// default server of this process.
class JackServer {
public:
    static constexpr int sampleRate = 48000;
    static constexpr int period = 256; ///< in samples

    JackServer();
    ~JackServer();
    JackServer(const JackServer&) = delete;
    JackServer& operator=(const JackServer&) = delete;

    /// Waits for it to answer; false when it does not.
    bool isUp() const;

private:
    pid_t m_process = 0;
};

/// A client with one MIDI input.
class JackReceiver {
public:
    /// received: called on JACK's thread for each message as it arrives; may not wait.
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
