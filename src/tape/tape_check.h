#pragma once

#include "tape/passage.h"
#include "tape/tape_fault.h"
#include "tape/tape_row.h"

#include <span>
#include <vector>

namespace vexa {

/// The result for a row.
struct RowVerdict {
    std::vector<Passage> passages; ///< in tape order; empty if the row is missing
    std::vector<TapeFault> faults;

    bool isWhole() const;
};

struct TapeVerdict {
    std::vector<RowVerdict> rows;  ///< one per row
    std::vector<Passage> unlisted; ///< on the tape but in no row
};

/// Compares the recordings with the rows, none of which may have an obstacle. A stretch belongs to
/// the row that it covers best; rows with the same times are expected in list order. Timecode that
/// runs on for less than a second after a row's end belongs to the row, as a separate clock ends
/// it.
TapeVerdict compare(std::span<const TapeRow> rows, std::span<const TapeContents> tapes,
                    double speedTolerance);

} // namespace vexa
