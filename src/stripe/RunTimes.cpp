#include "stripe/RunTimes.h"

#include "timecode/frame_count.h"

namespace vexa {

namespace {

using Seconds = std::optional<RunLoop::Seconds>;

Seconds sum(const Seconds& a, const Seconds& b) {
    if (!a || !b)
        return {};
    return *a + *b;
}

} // namespace

Seconds RunTimes::leftOfItem() const {
    const auto& progress = m_run.progress();
    const auto& plan = m_run.plan();
    if (!plan.useBatch && !plan.stopTimeSet)
        return {};
    switch (progress.phase) {
    case Phase::running:
        break;
    case Phase::paused:
        if (!plan.useBatch)
            break;
        return {};
    case Phase::awaitingReel:
        return timeOf(*m_run.awaited());
    case Phase::stopped:
    case Phase::betweenItems:
        return {};
    }
    if (progress.phase == Phase::running && m_run.hasReachedStop())
        return RunLoop::Seconds(0);
    const auto& counted = frameRateForCode(plan.settings.frameRate);
    const auto frames = framesUntil(m_run.currentTime(), progress.currentStop, counted);
    if (!frames)
        return {};
    return frameTime(m_run.tickingRate()) * static_cast<std::int64_t>(*frames);
}

RunLeft RunTimes::leftOfRun() {
    const auto item = leftOfItem();
    const auto pause = m_run.pauseLeft();
    // A pause interrupted by Play continues, and may end before the item does.
    if (pause && (!item || *pause < *item))
        return fromNextItem(pause);
    const auto phase = m_run.progress().phase;
    const bool isUnderWay = phase == Phase::running || phase == Phase::awaitingReel;
    if (!isUnderWay || !m_run.plan().useBatch || !m_run.items().hasMore())
        return {item};
    return fromNextItem(sum(item, m_run.plan().pauseBetweenItems()));
}

RunLeft RunTimes::fromNextItem(const Seconds& before) {
    const auto& plan = m_run.plan();
    const auto next = m_run.items().upcoming();
    if (!next)
        return {before};
    const bool isOnAnotherReel = next->reel != m_run.progress().reel;
    std::size_t reelChanges = isOnAnotherReel ? 1 : 0;
    Seconds time;
    if (plan.useBatch) {
        const auto& times = itemTimes();
        const auto row = m_run.items().row() + 1;
        const auto pauses = static_cast<double>(times.count() - row - 1);
        time = sum(times.from(row), plan.pauseBetweenItems() * pauses);
        reelChanges += times.reelChangesAfter(row);
    } else if (plan.stopTimeSet) {
        time = timeOf(*next);
    }
    return {sum(before, time), plan.pauseForReelChange ? reelChanges : 0};
}

const ItemTimes& RunTimes::itemTimes() {
    const auto& items = m_run.items();
    if (m_revision != items.revision()) {
        m_times = ItemTimes(items.items());
        m_revision = items.revision();
    }
    return m_times;
}

} // namespace vexa
