#pragma once

#include "tape/stretch.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vexa {

/// The timecode found in a recording.
struct TapeContents {
    std::string name; ///< of the recording
    std::uint32_t sampleRate = 48000;
    std::uint64_t length = 0; ///< in samples
    std::size_t channels = 1;
    std::size_t channel = 0;           ///< the channel that was read, from 0
    std::vector<Stretch> stretches;    ///< in tape order
    std::uint64_t stretchesBeyond = 0; ///< number of stretches beyond those kept
    std::string readError;             ///< why some of the recording was not read; empty if all was
};

} // namespace vexa
