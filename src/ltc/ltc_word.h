#pragma once

#include "timecode/timecode.h"

#include <bitset>
#include <cstdint>

namespace vexa {

/// One frame of linear timecode (SMPTE ST 12-1). Bit 0 comes first on tape.
using LtcWord = std::bitset<80>;

/// The eight user groups of four bits: group 1 in bits 0 to 3, group 8 in bits 28 to 31.
using LtcUserBits = std::uint32_t;

/// The word of a time that is valid at the rate. Its number of zeros is even, so every word starts
/// with a transition in the same direction. The colour-frame and binary group flags are 0, which
/// leaves the meaning of the user bits open.
LtcWord ltcWord(const Timecode& time, const FrameRate& rate, LtcUserBits userBits = 0);

} // namespace vexa
