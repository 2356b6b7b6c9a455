#pragma once

#include "timecode/frame_rate.h"

#include <chrono>
#include <cstdint>
#include <ratio>

namespace vexa {

/// Time as the clocks count it: the frame interval of each rate is a whole number of these units,
/// so frames of several rates add up without rounding.
using ClockTime = std::chrono::duration<std::int64_t, std::ratio<1, 29'970'000>>;

/// From one frame to the next.
constexpr ClockTime frameTime(const FrameRate& rate) {
    return ClockTime(static_cast<std::int64_t>(rate.frameInterval * ClockTime::period::den + 0.5));
}

} // namespace vexa
