#pragma once

#include "ltc/ltc_word.h"
#include "timecode/timecode.h"

#include <cstdint>
#include <vector>

namespace vexa {

/// Consecutive frames inside a stretch that cannot be read, while time continues.
struct Hole {
    double begin = 0;             ///< in samples of the recording
    std::uint64_t firstFrame = 0; ///< counted from the first of the stretch
    std::uint64_t frames = 0;
};

/// Timecode without a break in its numbers or in time.
struct Stretch {
    static constexpr std::size_t mostHoles = 1000;

    Timecode first;
    Timecode last;
    /// The rate shown by the numbers at the end of a second. If no second ends, the rate closest to
    /// the measured one.
    const FrameRate* rate = nullptr;
    std::uint64_t frames = 0; ///< from first to last, including holes
    std::uint64_t unread = 0; ///< frames in holes
    double begin = 0;         ///< in samples of the recording
    double end = 0;
    double speed = 0;         ///< deviation from the rate: 0.01 is one percent too fast
    double peak = 0;          ///< of the signal, 1 at full scale
    LtcUserBits userBits = 0; ///< of the first word
    std::vector<Hole> holes;  ///< only the first mostHoles
};

} // namespace vexa
