#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vexa {

/// Frame-rate codes as controls and list items carry them. Any other code is legal and counts as
/// 30 frames per second without drop-frame.
namespace rate {
inline constexpr std::uint64_t fps24 = 0;
inline constexpr std::uint64_t fps25 = 1;
inline constexpr std::uint64_t fps30 = 2;
inline constexpr std::uint64_t fps30Drop = 3;
} // namespace rate

/// All there is to know of a frame rate.
struct FrameRate {
    std::uint64_t code;
    std::string_view name;     ///< as the operator reads it, "25 fps"
    std::string_view menuItem; ///< the same, with '&' before the letter that chooses it
    double frameCount;         ///< frames numbered per second
    double frameInterval;      ///< seconds from one frame to the next
    bool dropFrame;            ///< SMPTE ST 12-1 drop-frame counting

    /// The exact rate of the signal: so many frames in so many seconds.
    std::uint64_t frames;
    std::uint64_t seconds;

    /// The generator's mode codes.
    std::uint8_t mtcMode;
    std::uint8_t dtlMode;

    std::uint8_t mtcBits; ///< the rate in MIDI Time Code, two bits
};

/// Every rate that can be chosen; a row's place is its code. Another rate is another row, in menus,
/// cells, messages and signals alike.
inline constexpr std::array frameRates{
    FrameRate{rate::fps24, "24 fps", "2&4 fps", 24.0, 1.0 / 24.0, false, 24, 1, 0, 4, 0},
    FrameRate{rate::fps25, "25 fps", "2&5 fps", 25.0, 1.0 / 25.0, false, 25, 1, 1, 5, 1},
    FrameRate{rate::fps30, "30 fps", "&30 fps", 30.0, 1.0 / 30.0, false, 30, 1, 2, 6, 3},
    FrameRate{rate::fps30Drop, "30 df", "30 &df", 30.0, 0.033366700033366704, true, 30000, 1001, 3,
              7, 2},
};

namespace rate {
inline constexpr std::uint64_t count = frameRates.size();
}

const FrameRate& frameRateForCode(std::uint64_t code);

} // namespace vexa
