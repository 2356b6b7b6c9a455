#pragma once

#include "ltc/ltc_word.h"
#include "timecode/timecode.h"

namespace vexa {

/// A word as it stands on a tape. Places are samples of the recording, from its beginning.
struct TapeWord {
    Timecode time; ///< below 24:60:60:40
    bool dropFrame = false;
    LtcUserBits userBits = 0;
    double begin = 0;
    double end = 0; ///< where the next one would begin
    float peak = 0; ///< of the signal there, 1 at full scale
};

} // namespace vexa
