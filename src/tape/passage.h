#pragma once

#include "tape/tape_contents.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace vexa {

/// A part of a stretch.
struct Passage {
    std::size_t recording = 0;
    std::size_t stretch = 0; ///< of that recording
    std::uint64_t begin = 0; ///< in frames of the stretch
    std::uint64_t end = 0;   ///< exclusive
};

inline const Stretch& stretchOf(const Passage& passage, std::span<const TapeContents> tapes) {
    return tapes[passage.recording].stretches[passage.stretch];
}

/// The place of a frame of the passage's stretch, in samples of the recording.
double placeOf(const Passage& passage, std::uint64_t frame, std::span<const TapeContents> tapes);

/// The number of the passage's first and last frame.
Timecode firstOf(const Passage& passage, std::span<const TapeContents> tapes);
Timecode lastOf(const Passage& passage, std::span<const TapeContents> tapes);

/// In tape order.
bool isEarlier(const Passage& a, const Passage& b);

} // namespace vexa
