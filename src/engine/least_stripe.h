#pragma once

#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <cstdint>

namespace vexa {

/// The stop time for a stripe that would otherwise not stop after its start: five seconds later.
inline std::uint64_t leastStopTime(std::uint64_t start, std::uint64_t rateCode) {
    constexpr double seconds = 5;
    const auto& rate = frameRateForCode(rateCode);
    return advanced(static_cast<PackedTimecode>(start),
                    static_cast<std::uint64_t>(rate.frameCount * seconds), rate);
}

} // namespace vexa
