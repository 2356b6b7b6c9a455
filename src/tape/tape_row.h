#pragma once

#include "batch/BatchItem.h"
#include "timecode/timecode.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace vexa {

/// A row of the list as a tape has it.
struct TapeRow {
    std::size_t number = 0; ///< as the operator counts, from 1
    std::uint64_t reel = 0;
    std::string title; ///< UTF-8
    Timecode start;
    Timecode stop; ///< the first frame that is not on the tape any more
    const FrameRate* rate = &frameRateForCode(rate::fps30);
    bool hasSignal = true; ///< FSK has none that could be recorded
};

/// The rows of these numbers, which count from 0; all rows where there are none. Numbers beyond the
/// list are passed over.
std::vector<TapeRow> tapeRows(const BatchItems& items, const std::set<std::size_t>& numbers = {});

/// Why there is no timecode for the row, in words; empty where there is.
std::string obstacle(const TapeRow& row);

/// For a row without an obstacle. The last frame is the one before the stop time: when the clock
/// reaches that, the generator is told to stop.
std::uint64_t frameCount(const TapeRow& row);
Timecode lastFrame(const TapeRow& row);

} // namespace vexa
