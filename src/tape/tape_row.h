#pragma once

#include "batch/BatchItem.h"
#include "timecode/timecode.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace vexa {

/// A row of the list, as it should be on tape.
struct TapeRow {
    std::size_t number = 0; ///< from 1, as the operator counts
    std::uint64_t reel = 0;
    std::string title; ///< UTF-8
    Timecode start;
    Timecode stop; ///< the first frame that is not on the tape
    const FrameRate* rate = &frameRateForCode(rate::fps30);
    bool hasSignal = true; ///< false for FSK, which cannot be recorded
};

/// The rows with these numbers, from 0, or all rows if there are none. Ignores numbers beyond the
/// list.
std::vector<TapeRow> tapeRows(const BatchItems& items, const std::set<std::size_t>& numbers = {});

/// Why the row has no timecode, in words; empty if it has.
std::string obstacle(const TapeRow& row);

/// For a row without an obstacle. The last frame is the one before the stop time, at which the
/// generator is stopped.
std::uint64_t frameCount(const TapeRow& row);
Timecode lastFrame(const TapeRow& row);

} // namespace vexa
