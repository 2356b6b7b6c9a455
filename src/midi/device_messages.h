#pragma once

#include "timecode/timecode.h"

#include <array>
#include <cstdint>

namespace vexa {

/// A whole MIDI System Exclusive message of the generator: F0, the manufacturer ID for
/// non-commercial use 7D, the device 42, hours, minutes, seconds, frames, a code, F7.
using DeviceMessage = std::array<std::uint8_t, 9>;

/// The code of a setup message: the rate's for MTC, the rate's plus 4 for DTL, 8 for FSK.
/// Codes past those of the tables are taken as they come, cut to a byte.
std::uint8_t modeCode(std::uint64_t frameRate, std::uint64_t syncType);

/// Times travel as they are packed, plain binary; a byte above 7F would break the message and is
/// not guarded against.
DeviceMessage setupMessage(PackedTimecode start, std::uint64_t frameRate, std::uint64_t syncType);
DeviceMessage startMessage(PackedTimecode start);
DeviceMessage stopMessage();

} // namespace vexa
