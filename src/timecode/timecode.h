#pragma once

#include "timecode/frame_rate.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vexa {

/// A time of day in one word: hours in bits 31..24, minutes 23..16, seconds 15..8, frames 7..0.
/// Each byte is a plain binary count (23 hours is 0x17), which the device messages carry
/// unchanged. Comparing two values as unsigned integers compares the times.
using PackedTimecode = std::uint32_t;

/// The four fields apart. Fields may stand outside their ranges, as half-checked input does;
/// isValid() tells.
struct Timecode {
    std::uint64_t hours = 0;   ///< 0..23
    std::uint64_t minutes = 0; ///< 0..59
    std::uint64_t seconds = 0; ///< 0..59
    std::uint64_t frames = 0;  ///< 0..frames per second - 1

    bool operator==(const Timecode&) const = default;
};

Timecode unpack(PackedTimecode value);

/// Fields above 255 spill into the field before them: the bytes are not masked.
PackedTimecode pack(const Timecode& time);

/// "hh:mm:ss:ff", two digits a field, colons at every rate. A field above 99 gives a character
/// beyond '9' in its tens place.
std::string timecodeText(const Timecode& time);

/// Whether the SMPTE ST 12-1 drop-frame count leaves this number out: frames 00 and 01 at the
/// start of every minute, except minutes 00, 10, 20, 30, 40 and 50.
bool isDropped(const Timecode& time);

/// Why there is no such time at the rate, in words: "no frame 59 at 25 fps". Of the first field
/// that is at fault, hours first; empty when none is.
std::string refusal(const Timecode& time, const FrameRate& rate);

/// Whether each field is in range for the rate, and the number is not dropped there.
bool isValid(const Timecode& time, const FrameRate& rate);

/// Moves a time on by a number of frames, with carries and the wrap at 24 hours. At a drop-frame
/// rate a dropped number that this ends on moves up by two; numbers dropped on the way are not
/// counted, so a long way at drop-frame is many steps of one. With 0 frames it brings a time into
/// line with the rate: frames beyond the rate carry into the seconds.
Timecode advanced(Timecode time, std::uint64_t frames, const FrameRate& rate);
PackedTimecode advanced(PackedTimecode time, std::uint64_t frames, const FrameRate& rate);

/// Reads "hh:mm:ss:ff", exactly eight digits and three colons, whatever the values.
/// Anything else gives nothing.
std::optional<Timecode> timecodeFromText(std::string_view text);

} // namespace vexa
