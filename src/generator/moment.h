#pragma once

#include <chrono>

namespace vexa {

/// A time on CLOCK_MONOTONIC, the clock of std::chrono::steady_clock on Linux.
using Moment = std::chrono::steady_clock::time_point;

} // namespace vexa
