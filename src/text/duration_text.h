#pragma once

#include <chrono>
#include <string>

namespace vexa {

/// How long something lasts, to the nearest second: "0:04", "4:10", "1:02:33". Negative times give
/// "0:00".
std::string durationText(std::chrono::duration<double> time);

/// How much time is left, in the same form. Rounds up, so a countdown reaches "0:00" exactly at its
/// end.
std::string timeLeftText(std::chrono::duration<double> time);

} // namespace vexa
