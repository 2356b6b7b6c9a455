#pragma once

#include "ltc/ltc_word.h"
#include "timecode/timecode.h"

#include <cstdint>
#include <vector>

namespace vexa {

/// Frames in the middle of a stretch that cannot be read, while the time goes on through them.
struct Hole {
    double begin = 0;             ///< in samples of the recording
    std::uint64_t firstFrame = 0; ///< counted from the first of the stretch
    std::uint64_t frames = 0;
};

/// Timecode that runs on without a break, in its numbers and in time.
struct Stretch {
    static constexpr std::size_t mostHoles = 1000;

    Timecode first;
    Timecode last;
    /// The rate that the numbers show where a second ends. Where none does, the nearest to what was
    /// measured.
    const FrameRate* rate = nullptr;
    std::uint64_t frames = 0; ///< from the first to the last, those of holes too
    std::uint64_t unread = 0; ///< of these, in holes
    double begin = 0;         ///< in samples of the recording
    double end = 0;
    double speed = 0;         ///< against the rate: 0.01 is one percent too fast
    double peak = 0;          ///< of the signal, 1 at full scale
    LtcUserBits userBits = 0; ///< of the first word
    std::vector<Hole> holes;  ///< the first ones, when there are more than mostHoles
};

} // namespace vexa
