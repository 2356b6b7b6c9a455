#pragma once

#include "timecode/timecode.h"

#include <cstdint>

namespace vexa {

/// How many frames of the day come before this one; numbers that drop-frame leaves out do not
/// count, and stand for the frame after them. For fields in range.
std::uint64_t frameNumber(const Timecode& time, const FrameRate& rate);

/// The reverse; numbers beyond the day go on in the next one.
Timecode timeOfFrame(std::uint64_t number, const FrameRate& rate);

std::uint64_t framesADay(const FrameRate& rate);

} // namespace vexa
