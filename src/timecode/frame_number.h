#pragma once

#include "timecode/timecode.h"

#include <cstdint>

namespace vexa {

/// The number of frames of the day before this one. Dropped numbers do not count; each stands for
/// the frame after it. Fields must be in range.
std::uint64_t frameNumber(const Timecode& time, const FrameRate& rate);

/// The inverse; numbers beyond the day continue in the next one.
Timecode timeOfFrame(std::uint64_t number, const FrameRate& rate);

std::uint64_t framesADay(const FrameRate& rate);

} // namespace vexa
