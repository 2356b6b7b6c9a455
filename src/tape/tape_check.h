#pragma once

#include "tape/passage.h"
#include "tape/tape_fault.h"
#include "tape/tape_row.h"

#include <span>
#include <vector>

namespace vexa {

/// What became of a row.
struct RowVerdict {
    std::vector<Passage> passages; ///< in the order of the tape; none where the row is missing
    std::vector<TapeFault> faults;

    bool isWhole() const;
};

struct TapeVerdict {
    std::vector<RowVerdict> rows;  ///< one for each
    std::vector<Passage> unlisted; ///< what is on the tape and on no row
};

/// Compares what was found with the rows, all without an obstacle. A stretch belongs to the row
/// that it covers best; rows of the same times are expected in the order of the list. What runs on
/// for less than a second after a row's end belongs to the row: a clock of its own ends it.
TapeVerdict compare(std::span<const TapeRow> rows, std::span<const TapeContents> tapes,
                    double speedTolerance);

} // namespace vexa
