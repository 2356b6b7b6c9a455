#include "tape/passage.h"

#include "timecode/frame_number.h"

#include <tuple>

namespace vexa {

namespace {
Timecode timeOf(const Stretch& stretch, std::uint64_t frame) {
    return timeOfFrame(frameNumber(stretch.first, *stretch.rate) + frame, *stretch.rate);
}
} // namespace

double placeOf(const Passage& passage, std::uint64_t frame, std::span<const TapeContents> tapes) {
    const auto& stretch = stretchOf(passage, tapes);
    return stretch.begin + (stretch.end - stretch.begin) * static_cast<double>(frame) /
                               static_cast<double>(stretch.frames);
}

Timecode firstOf(const Passage& passage, std::span<const TapeContents> tapes) {
    return timeOf(stretchOf(passage, tapes), passage.begin);
}

Timecode lastOf(const Passage& passage, std::span<const TapeContents> tapes) {
    return timeOf(stretchOf(passage, tapes), passage.end - 1);
}

bool isEarlier(const Passage& a, const Passage& b) {
    return std::tie(a.recording, a.stretch, a.begin) < std::tie(b.recording, b.stretch, b.begin);
}

} // namespace vexa
