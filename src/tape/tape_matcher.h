#pragma once

#include "tape/frame_ranges.h"
#include "tape/passage.h"
#include "tape/tape_row.h"

#include <optional>
#include <span>
#include <vector>

namespace vexa {

/// A passage that belongs to a row.
struct Claim {
    Passage passage;
    FrameRange numbers; ///< the row's numbers that it covers
};

/// The passages of a row. Empty if there are none.
struct RowMatch {
    std::vector<Claim> claims;    ///< in tape order
    std::optional<Passage> runOn; ///< timecode after its end, for less than a second
};

struct TapeMatch {
    std::vector<RowMatch> rows;
    std::vector<Passage> unlisted; ///< passages of no row, in tape order
};

/// The numbers of the row's frames.
FrameRange rangeOf(const TapeRow& row);

/// Assigns each passage of the tapes to the row that it covers best, preferring rows of the reel
/// named in the user bits. Rows that fit equally come in list order.
TapeMatch match(std::span<const TapeRow> rows, std::span<const TapeContents> tapes);

} // namespace vexa
