#pragma once

#include <cstdint>

/// Transport state codes. The first three are also the tags of the transport buttons.
namespace vexa::transport {
inline constexpr std::uint64_t stopped = 0;
inline constexpr std::uint64_t playing = 1;
inline constexpr std::uint64_t paused = 2;
/// Between two items of a batch run, and while its second and later items play.
inline constexpr std::uint64_t pausedBetweenItems = 3;
} // namespace vexa::transport
