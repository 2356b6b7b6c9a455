#include "timecode/frame_rate.h"

namespace vexa {

const FrameRate& frameRateForCode(std::uint64_t code) {
    static constexpr FrameRate fps24{"24 fps", 24.0, 1.0 / 24.0, false, 24, 1};
    static constexpr FrameRate fps25{"25 fps", 25.0, 1.0 / 25.0, false, 25, 1};
    static constexpr FrameRate fps30{"30 fps", 30.0, 1.0 / 30.0, false, 30, 1};
    static constexpr FrameRate fps30Drop{"30 df", 30.0, 0.033366700033366704, true, 30000, 1001};
    switch (code) {
    case rate::fps24:
        return fps24;
    case rate::fps25:
        return fps25;
    case rate::fps30Drop:
        return fps30Drop;
    default:
        return fps30;
    }
}

} // namespace vexa
