#pragma once

#include "batch/BatchItem.h"
#include "stripe/ClockTime.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexa {

/// Something that an operator would want to know of before the list is striped.
struct Finding {
    enum class Fault {
        stopNotAfterStart,
        noSuchStart, ///< at the row's rate
        noSuchStop,
        doubled,     ///< the same as `other` but for its id
        overlaps,    ///< begins before `other`, on the same reel, has ended
        rateChanges, ///< another rate than `other`, with which the reel begins
        reelTooLong, ///< with this row, the reel becomes longer than the tape
    };

    Fault fault;
    std::size_t row;
    BatchItemRef item;
    BatchItemRef other = nullptr; ///< the row that this one does not go with, if it is about two

    bool operator==(const Finding&) const = default;
};

/// What is to be said of the list, by rows. Each row is told of once per fault: of rows that it
/// overlaps, that which ends last. Rows that are doubled, or do not stop after their start, overlap
/// nothing. The rows of a reel need not follow each other. tapeMinutes: 0 for a tape of any length.
std::vector<Finding> checkList(const BatchItems& items, std::uint64_t tapeMinutes);

/// "overlaps “Part one”, which ends at 01:10:00:00"
QString findingText(const Finding& finding);

/// A reel of the list.
struct ReelTotal {
    std::uint64_t reel = 0;
    std::size_t rows = 0;
    ClockTime time{}; ///< of its rows, one after another; those that never end count nothing

    bool operator==(const ReelTotal&) const = default;
};

/// By number.
std::vector<ReelTotal> reelTotals(const BatchItems& items);

} // namespace vexa
