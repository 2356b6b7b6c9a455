#pragma once

#include <chrono>

namespace vexa {

/// A time on CLOCK_MONOTONIC, which is what std::chrono::steady_clock reads on Linux.
using Moment = std::chrono::steady_clock::time_point;

} // namespace vexa
