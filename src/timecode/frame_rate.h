#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vexa {

/// Frame-rate codes of controls and list items. Any other code is legal and means 30 frames per
/// second without drop-frame.
namespace rate {
inline constexpr std::uint64_t fps24 = 0;
inline constexpr std::uint64_t fps25 = 1;
inline constexpr std::uint64_t fps30 = 2;
inline constexpr std::uint64_t fps30Drop = 3;
} // namespace rate

/// Everything about a frame rate.
struct FrameRate {
    std::uint64_t code;
    std::string_view name;     ///< shown to the operator: "25 fps"
    std::string_view menuItem; ///< the same, with '&' before its access key
    double frameCount;         ///< frames numbered per second
    double frameInterval;      ///< seconds from one frame to the next
    bool dropFrame;            ///< SMPTE ST 12-1 drop-frame counting

    /// The exact rate of the signal: this many frames in this many seconds.
    std::uint64_t frames;
    std::uint64_t seconds;

    /// The generator's mode codes.
    std::uint8_t mtcMode;
    std::uint8_t dtlMode;

    std::uint8_t mtcBits; ///< two-bit rate code of MIDI Time Code
};

/// All rates; a row's index is its code. Menus, cells, messages and signals read this table, so a
/// new rate is a new row.
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

/// The name with the most letters, for the width of a column.
std::string_view longestRateName();

} // namespace vexa
