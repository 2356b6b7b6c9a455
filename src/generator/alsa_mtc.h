#pragma once

#include "generator/frame.h"
#include "generator/moment.h"
#include "mtc/quarter_frames.h"

#include <alsa/asoundlib.h>

#include <optional>
#include <span>

namespace vexa {

/// A queue of the ALSA sequencer, which delivers at the time that an event is stamped with.
class AlsaQueue {
public:
    /// The sequencer outlives the queue.
    explicit AlsaQueue(snd_seq_t* sequencer);

    bool isRunning() const { return m_queue >= 0; }
    unsigned char id() const { return static_cast<unsigned char>(m_queue); }

    /// The zero of the queue's clock on ours. Its timer need not run just like ours.
    Moment epoch() const;

private:
    snd_seq_t* m_sequencer;
    int m_queue;
};

/// MIDI time code from a port of the ALSA sequencer to all who listen there.
class AlsaMtc {
public:
    /// The sequencer and the queue outlive this.
    AlsaMtc(snd_seq_t* sequencer, int port, const AlsaQueue& queue);

    /// Sends the full frame.
    void announce(const Timecode& time, const FrameRate& rate);

    /// Quarter frames of a run that begins at a moment, as far as fill() puts them into the queue.
    void start(const Timecode& first, const FrameRate& rate, Moment moment);

    /// No quarter frames from that moment on.
    void stop(Moment moment);

    /// Puts those of the next second into the queue. To be called more often than that.
    void fill();

private:
    snd_seq_event_t event() const;
    snd_seq_real_time_t queueTime(Moment moment) const;

    snd_seq_t* m_sequencer;
    int m_port;
    const AlsaQueue& m_queue;
    Moment m_start;
    std::optional<QuarterFrames> m_frames; ///< the next one to be queued; none while stopped
};

} // namespace vexa
