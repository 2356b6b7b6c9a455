#pragma once

#include "mtc/mtc_messages.h"
#include "timecode/frame_steps.h"

namespace vexa {

/// The quarter frames of a run without an end, in order, with the samples they belong to. Eight in
/// two frames tell the number of the first of the two. The first eight begin on an even number,
/// which is the run's second where its first is odd.
class QuarterFrames {
public:
    /// The first number is valid at the rate; the sample rate may be any clock's.
    QuarterFrames(const Timecode& first, const FrameRate& rate, std::uint32_t sampleRate);

    /// When the next one is due, in samples from the start of the run.
    std::uint64_t sample() const { return m_steps.sample(); }

    MtcQuarterFrame message() const { return mtcQuarterFrame(m_time, m_rate, m_piece); }

    void advance();

private:
    FrameRate m_rate;
    FrameSteps m_steps;
    Timecode m_time; ///< that the eight tell
    unsigned m_piece = 0;
};

} // namespace vexa
