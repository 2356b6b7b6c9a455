#include "generator/alsa_unit.h"

#include "generator/alsa_mtc.h"
#include "generator/jack_ltc.h"
#include "generator/running_time.h"
#include "timecode/sync_type.h"

#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <span>

namespace vexa {

namespace {
using Clock = std::chrono::steady_clock;

/// Delay from a message's arrival to its effect: enough to read it and to reach JACK's period.
constexpr std::chrono::milliseconds delay{100};

/// How often to look for a JACK server and to fill the queue of quarter frames.
constexpr itimerspec everyHalfSecond{{0, 500'000'000}, {0, 1}};

struct CloseSequencer {
    void operator()(snd_seq_t* sequencer) const { snd_seq_close(sequencer); }
};
using Sequencer = std::unique_ptr<snd_seq_t, CloseSequencer>;

/// A port that stamps incoming events with the queue's time; negative on failure.
int createInput(snd_seq_t* sequencer, int queue) {
    snd_seq_port_info_t* info = nullptr;
    snd_seq_port_info_alloca(&info);
    snd_seq_port_info_set_name(info, generatorName);
    snd_seq_port_info_set_capability(info, SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE);
    snd_seq_port_info_set_type(info,
                               SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
    snd_seq_port_info_set_timestamping(info, 1);
    snd_seq_port_info_set_timestamp_real(info, 1);
    snd_seq_port_info_set_timestamp_queue(info, queue);
    return snd_seq_create_port(sequencer, info);
}

/// A port for subscribers; negative on failure.
int createOutput(snd_seq_t* sequencer) {
    return snd_seq_create_simple_port(
        sequencer, "MTC", SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ,
        SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_APPLICATION);
}

class AlsaUnit : public Unit {
public:
    AlsaUnit(Sequencer sequencer, const OutputOptions& options);
    ~AlsaUnit() override;

    /// Creates the ports. Returns false on failure.
    bool open();

    std::string name() const override { return generatorName; }
    int descriptor() const override { return m_poll; }
    bool read(Listener& listener) override;
    void finish(Listener& listener) override;
    SignalStatus signal() override;

private:
    bool watch(int descriptor) const;
    bool readEvents(Listener& listener);
    void openLtc(Listener& listener);
    void readLtc(Listener& listener);
    Moment arrivalOf(const snd_seq_event_t& event) const;
    void take(const SysEx& message, Moment arrival, Listener& listener);
    void act(const SetupFrame& setup, Moment arrival);
    void act(const StartFrame& start, Moment arrival);
    void act(const StopFrame& stop, Moment arrival);
    void act(const MalformedFrame& malformed, Moment arrival);

    const OutputOptions m_options;
    Sequencer m_sequencer;
    AlsaQueue m_queue;
    std::optional<AlsaMtc> m_mtc;
    std::unique_ptr<LtcOutput> m_ltc; ///< none without a JACK server
    int m_timer;
    int m_poll;
    SysExReader m_reader;
    GeneratorState m_state;
    Moment m_started;
    std::optional<RunningTime> m_time; ///< of a run without LTC
};

AlsaUnit::AlsaUnit(Sequencer sequencer, const OutputOptions& options)
    : m_options(options),
      m_sequencer(std::move(sequencer)),
      m_queue(m_sequencer.get()),
      m_timer(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)),
      m_poll(epoll_create1(EPOLL_CLOEXEC)) {}

AlsaUnit::~AlsaUnit() {
    close(m_timer);
    close(m_poll);
}

bool AlsaUnit::open() {
    auto* const sequencer = m_sequencer.get();
    pollfd descriptor{};
    if (!m_queue.isRunning() || snd_seq_set_client_name(sequencer, generatorName) < 0 ||
        createInput(sequencer, m_queue.id()) < 0 ||
        snd_seq_poll_descriptors(sequencer, &descriptor, 1, POLLIN) != 1)
        return false;
    const int output = createOutput(sequencer);
    if (output < 0)
        return false;
    m_mtc.emplace(sequencer, output, m_queue);
    return watch(descriptor.fd) && watch(m_timer) &&
           timerfd_settime(m_timer, 0, &everyHalfSecond, nullptr) == 0;
}

bool AlsaUnit::watch(int descriptor) const {
    epoll_event event{EPOLLIN, {}};
    return epoll_ctl(m_poll, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

bool AlsaUnit::read(Listener& listener) {
    std::uint64_t expirations = 0;
    const bool timerHasFired = ::read(m_timer, &expirations, sizeof expirations) > 0;
    m_mtc->fill();
    if (m_ltc)
        readLtc(listener);
    else if (timerHasFired && m_state.phase() != GeneratorState::Phase::running)
        openLtc(listener);
    return readEvents(listener);
}

void AlsaUnit::openLtc(Listener& listener) {
    m_ltc = openJackLtc(m_options);
    if (!m_ltc)
        return;
    watch(m_ltc->descriptor());
    listener.noted(Clock::now(), "ready: LTC on JACK");
}

void AlsaUnit::readLtc(Listener& listener) {
    if (m_ltc->read(listener))
        return;
    std::string text = "gone: JACK, and LTC with it";
    if (m_state.phase() == GeneratorState::Phase::running)
        text += " at " + timecodeText(m_ltc->signal().time);
    listener.noted(Clock::now(), text);
    m_ltc.reset();
}

bool AlsaUnit::readEvents(Listener& listener) {
    while (true) {
        snd_seq_event_t* event = nullptr;
        const int result = snd_seq_event_input(m_sequencer.get(), &event);
        if (result == -EAGAIN)
            return true;
        if (result == -ENOSPC) {
            // A gap ends the message: the next bytes do not continue it.
            finish(listener);
            listener.noted(Clock::now(), "lost: messages came faster than they could be read");
        } else if (result < 0) {
            return false;
        } else if (event->type == SND_SEQ_EVENT_SYSEX) {
            const auto arrival = arrivalOf(*event);
            const auto& data = event->data.ext;
            for (const auto byte : std::span(static_cast<const std::uint8_t*>(data.ptr), data.len))
                if (const auto message = m_reader.take(byte))
                    take(*message, arrival, listener);
        }
    }
}

Moment AlsaUnit::arrivalOf(const snd_seq_event_t& event) const {
    const auto& time = event.time.time;
    return m_queue.epoch() + std::chrono::seconds(time.tv_sec) +
           std::chrono::nanoseconds(time.tv_nsec);
}

void AlsaUnit::take(const SysEx& message, Moment arrival, Listener& listener) {
    const auto frame = decodedFrame(message);
    Report report{arrival, message, m_state.take(frame), m_state, {}, 0};
    if (m_time && m_state.phase() == GeneratorState::Phase::stopped) {
        report.stoppedAt = m_time->at(arrival + delay - m_started);
        report.xruns = signal().xruns;
    }
    if (report.reply == Reply::doneBySetupInStop)
        act(*m_state.setup(), arrival);
    if (report.reply == Reply::done || report.reply == Reply::doneBySetupInStop)
        std::visit([&](const auto& kind) { act(kind, arrival); }, frame);
    listener.happened(report);
}

void AlsaUnit::act(const SetupFrame& setup, Moment arrival) {
    if (setup.mode.sync == sync::mtc)
        m_mtc->announce(setup.time, frameRateForCode(*setup.mode.rate), arrival + delay);
}

void AlsaUnit::act(const StartFrame&, Moment arrival) {
    const auto& [time, mode] = *m_state.setup();
    if (!mode.rate)
        return;
    const auto& rate = frameRateForCode(*mode.rate);
    m_started = arrival + delay;
    m_time.emplace(time, rate);
    if (m_ltc)
        m_ltc->start({time, rate}, m_started);
    if (mode.sync == sync::mtc)
        m_mtc->start(time, rate, m_started);
}

void AlsaUnit::act(const StopFrame&, Moment arrival) {
    m_time.reset();
    m_mtc->stop(arrival + delay);
    if (m_ltc)
        m_ltc->finish(arrival + delay);
}

void AlsaUnit::act(const MalformedFrame&, Moment) {}

void AlsaUnit::finish(Listener& listener) {
    if (const auto message = m_reader.finish())
        take(*message, Clock::now(), listener);
}

SignalStatus AlsaUnit::signal() {
    if (m_ltc)
        return m_ltc->signal();
    SignalStatus status;
    if (m_time)
        status.time = m_time->at(Clock::now() - m_started);
    return status;
}

/// Silences alsa-lib, whose messages about a missing sequencer add nothing to ours.
void ignoreMessage(const char*, int, const char*, int, const char*, ...) {}
} // namespace

std::unique_ptr<Unit> openAlsaUnit(const OutputOptions& options) {
    snd_lib_error_set_handler(ignoreMessage);
    snd_seq_t* handle = nullptr;
    if (snd_seq_open(&handle, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0)
        return nullptr;
    auto unit = std::make_unique<AlsaUnit>(Sequencer(handle), options);
    if (!unit->open())
        return nullptr;
    return unit;
}

} // namespace vexa
