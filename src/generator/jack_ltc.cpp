#include "generator/jack_ltc.h"

#include "generator/jack_client.h"
#include "generator/real_time_queue.h"

#include <algorithm>

namespace vexa {

namespace {
class JackLtc : public LtcOutput, public JackClient {
public:
    JackLtc(jack_client_t* client, const OutputOptions& options);
    ~JackLtc() override { close(); }

    void start(const LtcRun& run, Moment moment) override;
    void finish(Moment moment) override { order({moment, std::nullopt}); }
    SignalStatus signal() override;
    int descriptor() const override { return wakeUps(); }
    bool read(Listener& listener) override;

private:
    /// A start with its run, or a finish.
    struct Order {
        Moment moment;
        std::optional<LtcRun> run;
        jack_nframes_t sample = 0; ///< the server's count at that moment
    };

    void process(jack_nframes_t samples) override;
    void order(Order order);
    /// Whether m_next is set; fetches the next order first, if necessary.
    bool hasNext();

    const double m_level;
    unsigned m_xrunsBefore = 0; ///< before the current run

    RealTimeQueue<Order> m_orders{64};
    std::atomic<PackedTimecode> m_time = 0;

    /// Used by process().
    LtcSignal m_signal;
    std::optional<Order> m_next;
};

JackLtc::JackLtc(jack_client_t* client, const OutputOptions& options)
    : JackClient(client, options),
      m_level(options.level),
      m_signal(jack_get_sample_rate(client), options.level) {}

void JackLtc::start(const LtcRun& run, Moment moment) {
    m_xrunsBefore = xruns();
    m_time = pack(run.first);
    order({moment, run});
}

void JackLtc::order(Order order) {
    const auto age = std::chrono::floor<std::chrono::microseconds>(order.moment - epoch());
    order.sample = jack_time_to_frames(client(), static_cast<jack_time_t>(age.count()));
    m_orders.push(order);
}

bool JackLtc::hasNext() {
    if (!m_next)
        m_next = m_orders.pop();
    return m_next.has_value();
}

void JackLtc::process(jack_nframes_t samples) {
    auto* const buffer = static_cast<float*>(jack_port_get_buffer(ltcPort(), samples));
    const std::span<float> ltc(buffer, samples);
    const auto begin = jack_last_frame_time(client());
    std::size_t now = 0;
    while (hasNext()) {
        // The server's count wraps around after a day.
        const auto offset = static_cast<std::int32_t>(m_next->sample - begin);
        if (offset >= static_cast<std::int32_t>(samples))
            break;
        const auto at = std::max(now, static_cast<std::size_t>(std::max(offset, 0)));
        m_signal.render(ltc.subspan(now, at - now));
        now = at;
        if (m_next->run)
            m_signal.start(*m_next->run);
        else
            m_signal.finish();
        m_next.reset();
    }
    m_signal.render(ltc.subspan(now));
    if (!m_signal.isSilent())
        m_time = pack(m_signal.time());
}

SignalStatus JackLtc::signal() { return {unpack(m_time), m_level, xruns() - m_xrunsBefore}; }

bool JackLtc::read(Listener& listener) {
    clearWakeUps();
    if (isGone())
        return false;
    connect(listener);
    return true;
}
} // namespace

std::unique_ptr<LtcOutput> openJackLtc(const OutputOptions& options) {
    return openedOnJack<JackLtc>(options);
}

} // namespace vexa
