#pragma once

#include "ltc/ltc_word.h"

#include <cstdint>
#include <string>

namespace vexa::ltc_tool {

/// "1:02:03.456", a place in a recording.
std::string placeText(double sample, std::uint32_t sampleRate);

/// "-18.0", in dBFS, of a peak that is 1 at full scale.
std::string levelText(double peak);

/// "+0.012", in percent, of a speed that is 0 where it is right.
std::string percentText(double speed);

/// "00000012", group 8 first.
std::string userBitsText(LtcUserBits bits);

} // namespace vexa::ltc_tool
