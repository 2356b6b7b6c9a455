#pragma once

#include "generator/output_options.h"
#include "generator/unit.h"
#include "jack_server/opened_on_jack.h"

#include <jack/jack.h>

#include <atomic>
#include <memory>

namespace vexa {

/// A client of a JACK server with an LTC output. Handles connections and server events. Derived
/// classes make the sound; their destructors must call close() first.
class JackClient {
public:
    JackClient(const JackClient&) = delete;
    JackClient& operator=(const JackClient&) = delete;

    /// Lets the server call process(). Returns false on failure.
    bool activate();

protected:
    JackClient(jack_client_t* client, const OutputOptions& options);
    ~JackClient();

    void close() { m_client.reset(); }

    /// Makes one period of samples. Called on a JACK thread, so it must not wait or allocate.
    virtual void process(jack_nframes_t samples) = 0;

    jack_client_t* client() const { return m_client.get(); }
    jack_port_t* ltcPort() const { return m_ltcPort; }

    /// An eventfd; readable after wakeUp().
    int wakeUps() const { return m_wakeUps; }
    void wakeUp();
    void clearWakeUps();

    /// Whether the server has ended or changed its sample rate.
    bool isGone() const { return m_gone; }

    unsigned xruns() const { return m_xruns; }

    /// Makes the requested connections that have become possible since the last call.
    void connect(Listener& listener);

    /// The zero of the server's clock, on our clock. The two may differ: jackd uses
    /// CLOCK_MONOTONIC_RAW, a few hundred milliseconds and some parts per million away.
    static Moment epoch();

private:
    struct CloseClient {
        void operator()(jack_client_t* client) const { jack_client_close(client); }
    };

    bool setCallbacks();
    void end();
    bool connectTo(const std::string& port);

    int m_wakeUps;
    std::atomic<bool> m_gone = false;
    std::atomic<bool> m_graphChanged = true;
    std::atomic<unsigned> m_xruns = 0;
    std::vector<std::string> m_toConnect;
    bool m_toldOfMissing = false;
    jack_nframes_t m_sampleRate;
    jack_port_t* m_ltcPort;
    std::unique_ptr<jack_client_t, CloseClient> m_client;
};

/// A client on the running server; null if no server runs. Does not start one.
template<typename Client>
std::unique_ptr<Client> openedOnJack(const OutputOptions& options) {
    return openedOnJack(generatorName, [&](jack_client_t* handle) {
        auto client = std::make_unique<Client>(handle, options);
        return client->activate() ? std::move(client) : nullptr;
    });
}

} // namespace vexa
