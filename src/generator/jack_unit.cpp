#include "generator/jack_unit.h"

#include "generator/generator.h"
#include "generator/jack_client.h"
#include "generator/real_time_queue.h"

#include <jack/midiport.h>

namespace vexa {

namespace {
/// A time on the server's clock, stored as a Moment until it is converted.
Moment onJackClock(jack_time_t time) { return Moment(std::chrono::microseconds(time)); }

/// The output of one period.
class Period : public MidiWriter {
public:
    Period(Generator& generator, std::span<float> ltc, void* mtc)
        : m_generator(generator), m_ltc(ltc), m_mtc(mtc) {
        jack_midi_clear_buffer(mtc);
    }

    void renderUntil(std::size_t sample) {
        m_generator.render(m_ltc.subspan(m_now, sample - m_now), *this);
        m_now = sample;
    }

    void write(std::uint64_t samples, std::span<const std::uint8_t> message) override {
        jack_midi_event_write(m_mtc, static_cast<jack_nframes_t>(m_now + samples), message.data(),
                              message.size());
    }

private:
    Generator& m_generator;
    std::span<float> m_ltc;
    void* m_mtc;
    std::size_t m_now = 0;
};

class JackUnit : public Unit, public JackClient {
public:
    JackUnit(jack_client_t* client, const OutputOptions& options);
    ~JackUnit() override { close(); }

    bool activate();

    std::string name() const override { return jack_get_client_name(client()); }
    int descriptor() const override { return wakeUps(); }
    bool read(Listener& listener) override;
    void finish(Listener& listener) override;
    SignalStatus signal() override;

private:
    void process(jack_nframes_t samples) override;
    void tell(Report report, jack_time_t arrival);
    Report malformed(const SysEx& message) const;
    void endAtGap(jack_time_t time);
    void tellReports(Listener& listener);

    const double m_level;
    jack_port_t* m_inPort;
    jack_port_t* m_mtcPort;

    /// Used by process(), and by finish() afterwards.
    SysExReader m_reader;
    Generator m_generator;
    bool m_running = false;

    /// From process() to read() and signal().
    RealTimeQueue<Report> m_reports{1024};
    std::atomic<bool> m_lost = false;
    std::atomic<PackedTimecode> m_time = 0;
    std::atomic<unsigned> m_xrunsBefore = 0; ///< before the current run
};

JackUnit::JackUnit(jack_client_t* client, const OutputOptions& options)
    : JackClient(client, options),
      m_level(options.level),
      m_inPort(jack_port_register(client, "in", JACK_DEFAULT_MIDI_TYPE,
                                  JackPortIsInput | JackPortIsTerminal, 0)),
      m_mtcPort(jack_port_register(client, "MTC", JACK_DEFAULT_MIDI_TYPE,
                                   JackPortIsOutput | JackPortIsTerminal, 0)),
      m_generator(jack_get_sample_rate(client), options.level) {}

bool JackUnit::activate() { return m_inPort && m_mtcPort && JackClient::activate(); }

void JackUnit::process(jack_nframes_t samples) {
    auto* const ltc = static_cast<float*>(jack_port_get_buffer(ltcPort(), samples));
    auto* const midi = jack_port_get_buffer(m_inPort, samples);
    const auto begin = jack_last_frame_time(client());
    Period period(m_generator, {ltc, samples}, jack_port_get_buffer(m_mtcPort, samples));
    for (std::uint32_t i = 0; i < jack_midi_get_event_count(midi); ++i) {
        jack_midi_event_t event;
        if (jack_midi_event_get(&event, midi, i) != 0)
            continue;
        period.renderUntil(event.time);
        const auto arrival = jack_frames_to_time(client(), begin + event.time);
        for (std::size_t k = 0; k < event.size; ++k)
            if (const auto message = m_reader.take(event.buffer[k]))
                tell(m_generator.take(*message, period), arrival);
    }
    if (jack_midi_get_lost_event_count(midi) > 0)
        endAtGap(jack_frames_to_time(client(), begin));
    period.renderUntil(samples);
    m_time = pack(m_generator.time());
}

void JackUnit::tell(Report report, jack_time_t arrival) {
    report.arrival = onJackClock(arrival);
    const bool runs = report.state.phase() == GeneratorState::Phase::running;
    if (runs && !m_running)
        m_xrunsBefore = xruns();
    m_running = runs;
    report.xruns = signal().xruns;
    if (!m_reports.push(report))
        m_lost = true;
    wakeUp();
}

Report JackUnit::malformed(const SysEx& message) const {
    return {{}, message, Reply::malformed, m_generator.state(), {}, 0};
}

void JackUnit::endAtGap(jack_time_t time) {
    // A gap ends the message: the next bytes do not continue it.
    if (const auto message = m_reader.finish())
        tell(malformed(*message), time);
    m_lost = true;
    wakeUp();
}

bool JackUnit::read(Listener& listener) {
    clearWakeUps();
    const bool gone = isGone();
    const bool lost = m_lost.exchange(false);
    tellReports(listener);
    const auto now = std::chrono::steady_clock::now();
    if (lost)
        listener.noted(now, "lost: messages came faster than they could be read");
    if (!gone)
        connect(listener);
    return !gone;
}

void JackUnit::tellReports(Listener& listener) {
    while (auto report = m_reports.pop()) {
        report->arrival = epoch() + report->arrival.time_since_epoch();
        listener.happened(*report);
    }
}

void JackUnit::finish(Listener& listener) {
    jack_deactivate(client());
    tellReports(listener);
    if (const auto message = m_reader.finish()) {
        tell(malformed(*message), jack_get_time());
        tellReports(listener);
    }
}

SignalStatus JackUnit::signal() { return {unpack(m_time), m_level, xruns() - m_xrunsBefore}; }
} // namespace

std::unique_ptr<Unit> openJackUnit(const OutputOptions& options) {
    return openedOnJack<JackUnit>(options);
}

} // namespace vexa
