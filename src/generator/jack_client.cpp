#include "generator/jack_client.h"

#include "text/printable.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <string_view>

namespace vexa {

JackClient::JackClient(jack_client_t* client, const OutputOptions& options)
    : m_wakeUps(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      m_toConnect(options.connections),
      m_sampleRate(jack_get_sample_rate(client)),
      m_ltcPort(jack_port_register(client, "LTC", JACK_DEFAULT_AUDIO_TYPE,
                                   JackPortIsOutput | JackPortIsTerminal, 0)),
      m_client(client) {
    wakeUp();
}

JackClient::~JackClient() { ::close(m_wakeUps); }

bool JackClient::activate() {
    return m_wakeUps >= 0 && m_ltcPort && setCallbacks() && jack_activate(client()) == 0;
}

bool JackClient::setCallbacks() {
    jack_on_shutdown(client(), [](void* self) { static_cast<JackClient*>(self)->end(); }, this);
    const auto process = [](jack_nframes_t samples, void* self) {
        static_cast<JackClient*>(self)->process(samples);
        return 0;
    };
    const auto xrun = [](void* self) {
        ++static_cast<JackClient*>(self)->m_xruns;
        static_cast<JackClient*>(self)->wakeUp();
        return 0;
    };
    // A port can be connected only once its client is active, which is after the port appears.
    const auto graphChanged = [](void* self) {
        static_cast<JackClient*>(self)->m_graphChanged = true;
        static_cast<JackClient*>(self)->wakeUp();
        return 0;
    };
    // A signal is made for one sample rate. Reopening makes it for the new rate.
    const auto sampleRate = [](jack_nframes_t rate, void* self) {
        if (rate != static_cast<JackClient*>(self)->m_sampleRate)
            static_cast<JackClient*>(self)->end();
        return 0;
    };
    return jack_set_process_callback(client(), process, this) == 0 &&
           jack_set_xrun_callback(client(), xrun, this) == 0 &&
           jack_set_graph_order_callback(client(), graphChanged, this) == 0 &&
           jack_set_sample_rate_callback(client(), sampleRate, this) == 0;
}

void JackClient::end() {
    m_gone = true;
    wakeUp();
}

void JackClient::wakeUp() {
    // Fails only if a wake-up is already pending.
    eventfd_write(m_wakeUps, 1);
}

void JackClient::clearWakeUps() {
    eventfd_t wakeUps = 0;
    eventfd_read(m_wakeUps, &wakeUps);
}

void JackClient::connect(Listener& listener) {
    if (m_toConnect.empty() || !m_graphChanged.exchange(false))
        return;
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(m_toConnect, [&](const std::string& port) {
        if (!connectTo(port))
            return false;
        listener.noted(now, "connected: " + printable(port));
        return true;
    });
    if (m_toldOfMissing)
        return;
    m_toldOfMissing = true;
    for (const auto& port : m_toConnect)
        listener.noted(now, "not connected: no sound input " + printable(port) + " yet");
}

bool JackClient::connectTo(const std::string& port) {
    const auto* const other = jack_port_by_name(client(), port.c_str());
    return other && (jack_port_flags(other) & JackPortIsInput) &&
           std::string_view(jack_port_type(other)) == JACK_DEFAULT_AUDIO_TYPE &&
           jack_connect(client(), jack_port_name(m_ltcPort), port.c_str()) == 0;
}

Moment JackClient::epoch() {
    return std::chrono::steady_clock::now() - std::chrono::microseconds(jack_get_time());
}

} // namespace vexa
