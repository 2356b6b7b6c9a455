#pragma once

#include "stripe/ItemTimes.h"
#include "stripe/StripeRun.h"

#include <optional>

namespace vexa {

/// How long a run still goes on.
struct RunLeft {
    /// Nothing where it does not end by itself, or no run is under way.
    std::optional<RunLoop::Seconds> time;
    /// How often it will wait for a reel, which nobody knows how long takes.
    std::size_t reelChanges = 0;
};

/// How much time a run has left if nothing is changed, to the frame: what its clock has still to
/// count, and the pauses. Asked at each frame, it adds a list up once until that changes. Main
/// thread only.
class RunTimes {
public:
    /// The run must outlive this.
    explicit RunTimes(const StripeRun& run) : m_run(run) {}

    /// Of the item or single stripe that plays or that goes on after the operator's pause, or of
    /// the item whose reel is awaited, as far as it ends by itself.
    std::optional<RunLoop::Seconds> leftOfItem() const;
    /// A batch run that the operator has paused is over: Play begins it anew.
    RunLeft leftOfRun();

private:
    /// What the items take that come next, after that much time.
    RunLeft fromNextItem(const std::optional<RunLoop::Seconds>& before);
    const ItemTimes& itemTimes();

    const StripeRun& m_run;
    ItemTimes m_times;
    std::optional<ItemSequence::Revision> m_revision; ///< of the items that they are of
};

} // namespace vexa
