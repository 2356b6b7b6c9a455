#pragma once

#include "ltc/ltc_word.h"

#include <cstdint>
#include <string>

namespace vexa::ltc_tool {

/// A place in a recording: "1:02:03.456".
std::string placeText(double sample, std::uint32_t sampleRate);

/// A peak in dBFS, where 1 is full scale: "-18.0".
std::string levelText(double peak);

/// A speed deviation in percent, 0 being correct: "+0.012".
std::string percentText(double speed);

/// "00000012", group 8 first.
std::string userBitsText(LtcUserBits bits);

} // namespace vexa::ltc_tool
