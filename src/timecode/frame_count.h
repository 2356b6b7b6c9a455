#pragma once

#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <cstdint>
#include <optional>

namespace vexa {

/// How many frames a clock counts from now until it reaches or passes the stop time. At least 1, as
/// it compares after each frame. Wraps at midnight and skips dropped numbers. Empty if the clock
/// never gets there, or if its first step does not lead to a time of day.
std::optional<std::uint64_t> framesUntil(std::uint64_t now, std::uint64_t stop,
                                         const FrameRate& rate);

} // namespace vexa
