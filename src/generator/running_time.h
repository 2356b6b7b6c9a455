#pragma once

#include "timecode/frame_steps.h"
#include "timecode/timecode.h"

#include <chrono>

namespace vexa {

/// Counts the frames of a run on our own clock, for runs without a signal.
class RunningTime {
public:
    /// The first time must be valid at the rate.
    RunningTime(const Timecode& first, const FrameRate& rate)
        : m_rate(rate), m_time(first), m_next(rate, nanosecondsASecond, 1) {
        m_next.advance();
    }

    /// The timecode that long after the start. Calls must not go back in time.
    const Timecode& at(std::chrono::nanoseconds sinceStart) {
        for (; static_cast<std::int64_t>(m_next.sample()) <= sinceStart.count(); m_next.advance())
            m_time = advanced(m_time, 1, m_rate); // single steps skip dropped numbers
        return m_time;
    }

private:
    static constexpr std::uint32_t nanosecondsASecond = 1'000'000'000;

    FrameRate m_rate;
    Timecode m_time;
    FrameSteps m_next; ///< the next frame, in nanoseconds instead of samples
};

} // namespace vexa
