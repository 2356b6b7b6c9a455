#pragma once

#include "timecode/frame_steps.h"
#include "timecode/timecode.h"

#include <chrono>

namespace vexa {

/// Counts the frames of a run by a clock of ours, where no signal does.
class RunningTime {
public:
    /// The first number is valid at the rate.
    RunningTime(const Timecode& first, const FrameRate& rate)
        : m_rate(rate), m_time(first), m_next(rate, nanosecondsASecond, 1) {
        m_next.advance();
    }

    /// The number under way so long after the start. Time does not go back.
    const Timecode& at(std::chrono::nanoseconds sinceStart) {
        for (; static_cast<std::int64_t>(m_next.sample()) <= sinceStart.count(); m_next.advance())
            m_time = advanced(m_time, 1, m_rate); // drop-frame numbers are left out by single steps
        return m_time;
    }

private:
    static constexpr std::uint32_t nanosecondsASecond = 1'000'000'000;

    FrameRate m_rate;
    Timecode m_time;
    FrameSteps m_next; ///< the next frame, a sample being a nanosecond
};

} // namespace vexa
