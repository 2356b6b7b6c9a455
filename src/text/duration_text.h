#pragma once

#include <chrono>
#include <string>

namespace vexa {

/// "0:04", "4:10", "1:02:33". A second that has begun counts whole, so that time which runs down
/// comes to "0:00" at its end; so does time below zero.
std::string durationText(std::chrono::duration<double> time);

} // namespace vexa
