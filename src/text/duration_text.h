#pragma once

#include <chrono>
#include <string>

namespace vexa {

/// "0:04", "4:10", "1:02:33". Rounds up to whole seconds, so a countdown reaches "0:00" exactly at
/// its end. Negative times give "0:00".
std::string durationText(std::chrono::duration<double> time);

} // namespace vexa
