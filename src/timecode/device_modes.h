#pragma once

#include "timecode/frame_rate.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vexa {

/// Codes of the generator's messages other than those of the frame rates. A setup carries a mode; a
/// start has its own code.
namespace device_mode {

inline constexpr std::uint8_t fsk = 8;
inline constexpr std::uint8_t start = 0x7F;

constexpr auto all() {
    std::array<std::uint8_t, 2 * frameRates.size() + 2> codes{fsk, start};
    auto* next = codes.data() + 2;
    for (const auto& rate : frameRates) {
        *next++ = rate.mtcMode;
        *next++ = rate.dtlMode;
    }
    return codes;
}

constexpr bool areDistinct() {
    auto codes = all();
    std::ranges::sort(codes);
    return std::ranges::adjacent_find(codes) == codes.end();
}

static_assert(areDistinct(), "two modes share a code: the generator could not tell them apart");
static_assert(std::ranges::max(all()) < 0x80, "System Exclusive carries seven bits a byte");

} // namespace device_mode
} // namespace vexa
