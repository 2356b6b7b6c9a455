#pragma once

#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <cstdint>
#include <optional>

namespace vexa {

/// How many frames a clock at that time counts until it stands at the stop time or past it: at
/// least one, as it is compared after each frame. It wraps at midnight and passes over dropped
/// numbers. Nothing where it never gets there, or is at no time of day after its first frame.
std::optional<std::uint64_t> framesUntil(std::uint64_t now, std::uint64_t stop,
                                         const FrameRate& rate);

} // namespace vexa
