#pragma once

#include "batch/BatchItem.h"
#include "stripe/ClockTime.h"
#include "stripe/RunLoop.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vexa {

/// How long an item takes; empty if it would never end.
std::optional<ClockTime> timeOf(const BatchItem& item);
/// The same, but zero if it would never end.
ClockTime timeOrZero(const BatchItem& item);

/// How long a list takes from each row to its end. Added up once, so that asking costs nothing.
class ItemTimes {
public:
    ItemTimes() = default;
    explicit ItemTimes(const BatchItems& items);

    std::size_t count() const { return m_rows.size(); }
    /// The time from a row below count(), without pauses. Empty if one of the items would never
    /// end.
    std::optional<ClockTime> from(std::size_t row) const;
    /// How often the reel changes between this row's item and the last one.
    std::size_t reelChangesAfter(std::size_t row) const { return m_rows[row].reelChangesAfter; }

private:
    struct Row {
        ClockTime time;
        std::size_t reelChangesAfter;
        bool isEndless;
    };
    std::vector<Row> m_rows;
};

/// The totals of a run of a list.
struct ListTotal {
    std::size_t items = 0;
    std::size_t reels = 0; ///< number of different ones
    /// With the pauses between the items; empty if one of the items would never end.
    std::optional<RunLoop::Seconds> time;
};
ListTotal totalOf(const BatchItems& items, RunLoop::Seconds pauseBetweenItems);

} // namespace vexa
