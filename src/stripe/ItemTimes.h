#pragma once

#include "batch/BatchItem.h"
#include "stripe/ClockTime.h"
#include "stripe/RunLoop.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace vexa {

/// How long an item takes; nothing where it would never end.
std::optional<ClockTime> timeOf(const BatchItem& item);

/// What the items of a list take from each row on to the last, added up once: asking costs nothing.
class ItemTimes {
public:
    ItemTimes() = default;
    explicit ItemTimes(const BatchItems& items);

    std::size_t count() const { return m_rows.size(); }
    /// Without the pauses; nothing where one of them would never end. Below count().
    std::optional<ClockTime> from(std::size_t row) const;
    /// How often the reel changes on the way from this row's item to the last one.
    std::size_t reelChangesAfter(std::size_t row) const { return m_rows[row].reelChangesAfter; }

private:
    struct Row {
        ClockTime time;
        std::size_t reelChangesAfter;
        bool isEndless;
    };
    std::vector<Row> m_rows;
};

/// What a run of a list comes to.
struct ListTotal {
    std::size_t items = 0;
    std::size_t reels = 0; ///< how many different ones
    /// With the pauses between the items; nothing where one of them would never end.
    std::optional<RunLoop::Seconds> time;
};
ListTotal totalOf(const BatchItems& items, RunLoop::Seconds pauseBetweenItems);

} // namespace vexa
