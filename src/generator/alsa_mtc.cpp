#include "generator/alsa_mtc.h"

namespace vexa {

namespace {
using std::chrono::nanoseconds;

constexpr std::uint32_t nanosecondsASecond = 1'000'000'000;
constexpr std::chrono::seconds horizon{1};

snd_seq_real_time_t realTime(nanoseconds time) {
    const auto count = std::max(time, nanoseconds(0)).count();
    return {static_cast<unsigned>(count / nanosecondsASecond),
            static_cast<unsigned>(count % nanosecondsASecond)};
}
} // namespace

AlsaQueue::AlsaQueue(snd_seq_t* sequencer)
    : m_sequencer(sequencer), m_queue(snd_seq_alloc_queue(sequencer)) {
    if (m_queue < 0)
        return;
    snd_seq_start_queue(m_sequencer, m_queue, nullptr);
    snd_seq_drain_output(m_sequencer);
}

Moment AlsaQueue::epoch() const {
    snd_seq_queue_status_t* status = nullptr;
    snd_seq_queue_status_alloca(&status);
    const auto now = std::chrono::steady_clock::now();
    if (snd_seq_get_queue_status(m_sequencer, m_queue, status) < 0)
        return now;
    const auto* const time = snd_seq_queue_status_get_real_time(status);
    return now - std::chrono::seconds(time->tv_sec) - nanoseconds(time->tv_nsec);
}

AlsaMtc::AlsaMtc(snd_seq_t* sequencer, int port, const AlsaQueue& queue)
    : m_sequencer(sequencer), m_port(port), m_queue(queue) {}

snd_seq_event_t AlsaMtc::event() const {
    snd_seq_event_t event;
    snd_seq_ev_clear(&event);
    snd_seq_ev_set_source(&event, static_cast<unsigned char>(m_port));
    snd_seq_ev_set_subs(&event);
    return event;
}

snd_seq_real_time_t AlsaMtc::queueTime(Moment moment) const {
    return realTime(moment - m_queue.epoch());
}

void AlsaMtc::announce(const Timecode& time, const FrameRate& rate, Moment moment) {
    auto message = mtcFullFrame(time, rate);
    auto full = event();
    snd_seq_ev_set_sysex(&full, message.size(), message.data());
    const auto due = queueTime(moment);
    snd_seq_ev_schedule_real(&full, m_queue.id(), 0, &due);
    snd_seq_event_output_direct(m_sequencer, &full);
}

void AlsaMtc::start(const Timecode& first, const FrameRate& rate, Moment moment) {
    m_frames.emplace(first, rate, nanosecondsASecond);
    m_start = moment;
    fill();
}

void AlsaMtc::stop(Moment moment) {
    fill();
    m_frames.reset();
    auto time = queueTime(moment);
    snd_seq_remove_events_t* later = nullptr;
    snd_seq_remove_events_alloca(&later);
    snd_seq_remove_events_set_queue(later, m_queue.id());
    snd_seq_remove_events_set_condition(later, SND_SEQ_REMOVE_OUTPUT | SND_SEQ_REMOVE_TIME_AFTER);
    snd_seq_remove_events_set_time(later, reinterpret_cast<snd_seq_timestamp_t*>(&time));
    snd_seq_remove_events(m_sequencer, later);
}

void AlsaMtc::fill() {
    if (!m_frames)
        return;
    const auto epoch = m_queue.epoch();
    const auto end = std::chrono::steady_clock::now() + horizon;
    const auto due = [this] { return m_start + nanoseconds(m_frames->sample()); };
    for (; due() < end; m_frames->advance()) {
        auto quarter = event();
        quarter.type = SND_SEQ_EVENT_QFRAME;
        quarter.data.control.value = m_frames->message()[1];
        const auto time = realTime(due() - epoch);
        snd_seq_ev_schedule_real(&quarter, m_queue.id(), 0, &time);
        snd_seq_event_output_direct(m_sequencer, &quarter);
    }
}

} // namespace vexa
