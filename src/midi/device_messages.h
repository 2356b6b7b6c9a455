#pragma once

#include "timecode/timecode.h"

#include <array>
#include <cstdint>

namespace vexa {

/// A whole System Exclusive message of the generator: F0, 7D (manufacturer ID for non-commercial
/// use), 42 (the device), hours, minutes, seconds, frames, a code, F7.
using DeviceMessage = std::array<std::uint8_t, 9>;

/// The code of a setup message: the rate's for MTC, the rate's plus 4 for DTL, 8 for FSK. Unknown
/// rate codes are used as they are, truncated to a byte.
std::uint8_t modeCode(std::uint64_t frameRate, std::uint64_t syncType);

/// Times are sent as packed, in plain binary. A byte above 7F would break the message; nothing
/// checks for it.
DeviceMessage setupMessage(PackedTimecode start, std::uint64_t frameRate, std::uint64_t syncType);
DeviceMessage startMessage(PackedTimecode start);
DeviceMessage stopMessage();

} // namespace vexa
