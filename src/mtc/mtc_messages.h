#pragma once

#include "timecode/timecode.h"

#include <array>
#include <cstdint>

namespace vexa {

/// The whole of a time in one System Exclusive message of MIDI time code, for all devices.
using MtcFullFrame = std::array<std::uint8_t, 10>;

/// An eighth of a time: F1, then the number of the piece and four bits of the time.
using MtcQuarterFrame = std::array<std::uint8_t, 2>;

inline constexpr unsigned mtcPieces = 8;

/// The time is valid at the rate.
MtcFullFrame mtcFullFrame(const Timecode& time, const FrameRate& rate);

/// A piece, 0 to 7, of the time.
MtcQuarterFrame mtcQuarterFrame(const Timecode& time, const FrameRate& rate, unsigned piece);

} // namespace vexa
