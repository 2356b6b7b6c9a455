#pragma once

#include "stripe/ItemTimes.h"
#include "stripe/StripeRun.h"

#include <optional>

namespace vexa {

/// The time left in a run.
struct RunLeft {
    /// Empty if the run does not end by itself, or no run is in progress.
    std::optional<RunLoop::Seconds> time;
    /// Reel changes to come, whose duration is unknown.
    std::size_t reelChanges = 0;
};

/// Computes the time left in a run to the frame, if nothing changes: the frames still to count, and
/// the pauses. May be asked at every frame, as it totals a list only after a change. Main thread
/// only.
class RunTimes {
public:
    /// The run must outlive this.
    explicit RunTimes(const StripeRun& run) : m_run(run) {}

    /// Of the item that plays, of the single stripe that plays or is paused, or of the item whose
    /// reel is awaited. Empty if it does not end by itself.
    std::optional<RunLoop::Seconds> leftOfItem() const;
    /// A batch run that the operator has paused is over: Play starts it again from the beginning.
    RunLeft leftOfRun();

private:
    /// The time left if the next item starts after `before`.
    RunLeft fromNextItem(const std::optional<RunLoop::Seconds>& before);
    const ItemTimes& itemTimes();

    const StripeRun& m_run;
    ItemTimes m_times;
    std::optional<ItemSequence::Revision> m_revision; ///< of the items in m_times
};

} // namespace vexa
