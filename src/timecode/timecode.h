#pragma once

#include "timecode/frame_rate.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vexa {

/// A time of day in one word: hours in bits 31..24, minutes 23..16, seconds 15..8, frames 7..0.
/// Each byte is plain binary (23 hours is 0x17), as on the wire. Comparing two values as unsigned
/// integers compares the times.
using PackedTimecode = std::uint32_t;

/// A time of day in four fields. Unchecked input may be out of range; see isValid().
struct Timecode {
    std::uint64_t hours = 0;   ///< 0..23
    std::uint64_t minutes = 0; ///< 0..59
    std::uint64_t seconds = 0; ///< 0..59
    std::uint64_t frames = 0;  ///< 0..frames per second - 1

    bool operator==(const Timecode&) const = default;
};

Timecode unpack(PackedTimecode value);

/// Does not mask: a field above 255 overflows into the next one up.
PackedTimecode pack(const Timecode& time);

/// "hh:mm:ss:ff", two digits per field, colons at every rate. A field above 99 has a character
/// beyond '9' as its tens digit.
std::string timecodeText(const Timecode& time);
/// Of a packed time, as items and settings hold it. Ignores all but the 32 lowest bits.
std::string timecodeText(std::uint64_t packed);

/// Whether drop-frame counting (SMPTE ST 12-1) skips this number: frames 00 and 01 at the start of
/// every minute, except minutes 00, 10, 20, 30, 40 and 50.
bool isDropped(const Timecode& time);

/// Why the rate has no such time: "no frame 59 at 25 fps". Names the first invalid field, hours
/// first; empty if the time is valid.
std::string refusal(const Timecode& time, const FrameRate& rate);

/// Whether every field is in range for the rate and the number is not dropped.
bool isValid(const Timecode& time, const FrameRate& rate);

/// Adds frames, with carries and the wrap at 24 hours. A result that is a dropped number moves up
/// by two. Numbers dropped on the way are not counted, so at drop-frame rates advance frame by
/// frame. Adding 0 fits a time to the rate: excess frames carry into the seconds.
Timecode advanced(Timecode time, std::uint64_t frames, const FrameRate& rate);
PackedTimecode advanced(PackedTimecode time, std::uint64_t frames, const FrameRate& rate);

/// Reads "hh:mm:ss:ff": exactly eight digits and three colons, of any value. Anything else returns
/// nothing.
std::optional<Timecode> timecodeFromText(std::string_view text);

} // namespace vexa
