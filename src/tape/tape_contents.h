#pragma once

#include "tape/stretch.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vexa {

/// What was found in a recording.
struct TapeContents {
    std::string name; ///< of the recording
    std::uint32_t sampleRate = 48000;
    std::uint64_t length = 0; ///< in samples
    std::size_t channels = 1;
    std::size_t channel = 0;           ///< the one that was read, from 0
    std::vector<Stretch> stretches;    ///< in the order of the tape
    std::uint64_t stretchesBeyond = 0; ///< more than could be kept
    std::string readError; ///< why the recording could not be read to its end; empty where it could
};

} // namespace vexa
