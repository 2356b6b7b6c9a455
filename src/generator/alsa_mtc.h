#pragma once

#include "generator/frame.h"
#include "generator/moment.h"
#include "mtc/quarter_frames.h"

#include <alsa/asoundlib.h>

#include <optional>

namespace vexa {

/// A queue of the ALSA sequencer, which delivers events at their time stamps.
class AlsaQueue {
public:
    /// The sequencer must outlive the queue.
    explicit AlsaQueue(snd_seq_t* sequencer);

    bool isRunning() const { return m_queue >= 0; }
    unsigned char id() const { return static_cast<unsigned char>(m_queue); }

    /// The zero of the queue's clock, on our clock. The two may run at slightly different speeds.
    Moment epoch() const;

private:
    snd_seq_t* m_sequencer;
    int m_queue;
};

/// Sends MIDI time code from a port of the ALSA sequencer to all subscribers.
class AlsaMtc {
public:
    /// The sequencer and the queue must outlive this.
    AlsaMtc(snd_seq_t* sequencer, int port, const AlsaQueue& queue);

    /// Sends a full frame at a moment, after the quarter frames that are due before it.
    void announce(const Timecode& time, const FrameRate& rate, Moment moment);

    /// Starts the quarter frames of a run at a moment; fill() queues them.
    void start(const Timecode& first, const FrameRate& rate, Moment moment);

    /// Sends no quarter frames from that moment on.
    void stop(Moment moment);

    /// Queues the quarter frames of the next second. Call it more often than that.
    void fill();

private:
    snd_seq_event_t event() const;
    snd_seq_real_time_t queueTime(Moment moment) const;

    snd_seq_t* m_sequencer;
    int m_port;
    const AlsaQueue& m_queue;
    Moment m_start;
    std::optional<QuarterFrames> m_frames; ///< the next one to queue; none while stopped
};

} // namespace vexa
