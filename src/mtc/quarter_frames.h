#pragma once

#include "mtc/mtc_messages.h"
#include "timecode/frame_steps.h"

namespace vexa {

/// The quarter frames of an endless run, in order, with their positions in samples. Eight of them
/// span two frames and carry the number of the first. The first eight start on an even number: the
/// run's second, if its first is odd.
class QuarterFrames {
public:
    /// The first time must be valid at the rate. Any sample rate is allowed.
    QuarterFrames(const Timecode& first, const FrameRate& rate, std::uint32_t sampleRate);

    /// When the next one is due, in samples from the start of the run.
    std::uint64_t sample() const { return m_steps.sample(); }

    MtcQuarterFrame message() const { return mtcQuarterFrame(m_time, m_rate, m_piece); }

    void advance();

private:
    FrameRate m_rate;
    FrameSteps m_steps;
    Timecode m_time; ///< the time that the current eight carry
    unsigned m_piece = 0;
};

} // namespace vexa
