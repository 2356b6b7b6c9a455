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
    FrameRange numbers; ///< of the row that it covers
};

/// What belongs to a row. Empty where nothing does.
struct RowMatch {
    std::vector<Claim> claims;    ///< in the order of the tape
    std::optional<Passage> runOn; ///< what follows its end, for less than a second
};

struct TapeMatch {
    std::vector<RowMatch> rows;
    std::vector<Passage> unlisted; ///< what belongs to none, in the order of the tape
};

/// The numbers of the row's frames.
FrameRange rangeOf(const TapeRow& row);

/// Gives each passage of the tapes to the row that it covers best, and where the user bits name a
/// reel, rather to a row of that. Rows that fit as well come in the order of the list.
TapeMatch match(std::span<const TapeRow> rows, std::span<const TapeContents> tapes);

} // namespace vexa
