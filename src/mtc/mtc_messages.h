#pragma once

#include "timecode/timecode.h"

#include <array>
#include <cstdint>

namespace vexa {

/// A complete time in one System Exclusive message of MIDI time code, addressed to all devices.
using MtcFullFrame = std::array<std::uint8_t, 10>;

/// An eighth of a time: F1, then a byte with the piece's number and four bits of the time.
using MtcQuarterFrame = std::array<std::uint8_t, 2>;

inline constexpr unsigned mtcPieces = 8;

/// The time must be valid at the rate.
MtcFullFrame mtcFullFrame(const Timecode& time, const FrameRate& rate);

/// A piece of the time, 0 to 7.
MtcQuarterFrame mtcQuarterFrame(const Timecode& time, const FrameRate& rate, unsigned piece);

} // namespace vexa
