#pragma once

#include "ltc/ltc_word.h"
#include "timecode/timecode.h"

namespace vexa {

/// A word on a tape. Places are samples from the beginning of the recording.
struct TapeWord {
    Timecode time; ///< below 24:60:60:40
    bool dropFrame = false;
    LtcUserBits userBits = 0;
    double begin = 0;
    double end = 0;       ///< where the next one would begin
    float peak = 0;       ///< of the signal in the word, 1 at full scale
    bool isClear = false; ///< follows silence, and all its bits are equally long
};

} // namespace vexa
