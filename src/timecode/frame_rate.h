#pragma once

#include <cstdint>
#include <string_view>

namespace vexa {

/// Frame-rate codes as controls, list items and device messages carry them. Any other code is
/// legal and counts as 30 frames per second without drop-frame.
namespace rate {
inline constexpr std::uint64_t fps24 = 0;
inline constexpr std::uint64_t fps25 = 1;
inline constexpr std::uint64_t fps30 = 2;
inline constexpr std::uint64_t fps30Drop = 3;
inline constexpr std::uint64_t count = 4;
} // namespace rate

/// What a frame-rate code stands for.
struct FrameRate {
    std::string_view name; ///< as the operator reads it, "25 fps"
    double frameCount;     ///< frames numbered per second
    double frameInterval;  ///< seconds from one frame to the next
    bool dropFrame;        ///< SMPTE ST 12-1 drop-frame counting

    /// The exact rate of the signal: so many frames in so many seconds.
    std::uint64_t frames;
    std::uint64_t seconds;
};

const FrameRate& frameRateForCode(std::uint64_t code);

} // namespace vexa
