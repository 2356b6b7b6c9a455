#include "stripe/ItemTimes.h"

#include "timecode/frame_count.h"

#include <unordered_set>

namespace vexa {

std::optional<ClockTime> timeOf(const BatchItem& item) {
    const auto& rate = frameRateForCode(item.rate);
    const auto frames = framesUntil(item.start, item.stop, rate);
    if (!frames)
        return {};
    return frameTime(rate) * static_cast<std::int64_t>(*frames);
}

ClockTime timeOrZero(const BatchItem& item) { return timeOf(item).value_or(ClockTime::zero()); }

ItemTimes::ItemTimes(const BatchItems& items) : m_rows(items.size()) {
    Row after{};
    for (std::size_t row = items.size(); row-- > 0;) {
        const auto time = timeOf(*items[row]);
        const bool changesReel = row + 1 < items.size() && items[row]->reel != items[row + 1]->reel;
        after.time += time.value_or(ClockTime{});
        after.reelChangesAfter += changesReel ? 1 : 0;
        after.isEndless = after.isEndless || !time;
        m_rows[row] = after;
    }
}

std::optional<ClockTime> ItemTimes::from(std::size_t row) const {
    if (m_rows[row].isEndless)
        return {};
    return m_rows[row].time;
}

ListTotal totalOf(const BatchItems& items, RunLoop::Seconds pauseBetweenItems) {
    std::unordered_set<std::uint64_t> reels;
    ClockTime time{};
    bool isEndless = false;
    for (const auto& item : items) {
        reels.insert(item->reel);
        const auto itemTime = timeOf(*item);
        time += itemTime.value_or(ClockTime{});
        isEndless = isEndless || !itemTime;
    }
    const auto pauses = items.empty() ? 0.0 : static_cast<double>(items.size() - 1);
    ListTotal total{items.size(), reels.size(), {}};
    if (!isEndless)
        total.time = time + pauseBetweenItems * pauses;
    return total;
}

} // namespace vexa
