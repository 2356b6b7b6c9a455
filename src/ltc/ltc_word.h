#pragma once

#include "timecode/timecode.h"

#include <bitset>
#include <cstdint>

namespace vexa {

/// One frame of linear timecode (SMPTE ST 12-1), in the order on tape: bit 0 comes first.
using LtcWord = std::bitset<80>;

/// The eight user groups of four bits: group 1 in bits 0 to 3, group 8 in bits 28 to 31.
using LtcUserBits = std::uint32_t;

/// The word for a time that is valid at the rate. It holds an even number of zeros, so that the
/// next word begins with a transition in the same direction. The colour-frame flag and the
/// binary group flags are 0: the user bits have no announced meaning.
LtcWord ltcWord(const Timecode& time, const FrameRate& rate, LtcUserBits userBits = 0);

} // namespace vexa
