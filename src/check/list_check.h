#pragma once

#include "batch/BatchItem.h"
#include "stripe/ClockTime.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexa {

/// A problem to know of before the list is striped.
struct Finding {
    enum class Fault {
        stopNotAfterStart,
        noSuchStart, ///< at the row's rate
        noSuchStop,
        doubled,     ///< equals `other` except for the ID
        overlaps,    ///< begins before the end of `other`, on the same reel
        rateChanges, ///< differs from the rate of `other`, the first row of the reel
        reelTooLong, ///< with this row, the reel exceeds the tape
    };

    Fault fault;
    std::size_t row;
    BatchItemRef item;
    BatchItemRef other = nullptr; ///< the conflicting row, if there is one

    bool operator==(const Finding&) const = default;
};

/// The findings, by rows. Each row has at most one finding per fault; of several rows that it
/// overlaps, it names the one that ends last. Doubled rows, and rows that do not stop after their
/// start, overlap nothing. The rows of a reel need not be adjacent. tapeMinutes: 0 for a tape of
/// any length.
std::vector<Finding> checkList(const BatchItems& items, std::uint64_t tapeMinutes);

/// "overlaps “Part one”, which ends at 01:10:00:00"
QString findingText(const Finding& finding);

/// A reel of the list.
struct ReelTotal {
    std::uint64_t reel = 0;
    std::size_t rows = 0;
    ClockTime time{}; ///< total of its rows; rows that never end do not count

    bool operator==(const ReelTotal&) const = default;
};

/// By number.
std::vector<ReelTotal> reelTotals(const BatchItems& items);

} // namespace vexa
