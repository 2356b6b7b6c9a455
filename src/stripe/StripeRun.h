#pragma once

#include "stripe/GeneratorLink.h"
#include "stripe/ItemSequence.h"
#include "stripe/Progress.h"
#include "stripe/StripeClock.h"
#include "stripe/StripePlan.h"

#include <QObject>

#include <optional>

namespace vexa {

/// A run, from Play to its end: a single stripe, or the items of the batch list in turn. It sends
/// the messages, runs the clock and steps through the list. Whoever shows a run or asks for reels
/// listens to its signals; by then the messages are sent and progress() and currentTime() are up
/// to date. Main thread only.
class StripeRun : public QObject {
    Q_OBJECT

public:
    /// Where Play takes the start of a single stripe from.
    enum class From { startTime, clock };
    enum class End {
        /// The clock reached the stop time of the stripe or of the last item. Sends stop twice.
        stopTimeReached,
        noItemLeft, ///< the list became shorter during the pause
    };

    /// All must outlive this.
    StripeRun(RunLoop& runLoop, VexaBatchStripeData& list, GeneratorLink& link, StripePlan& plan);

    const Progress& progress() const { return m_progress; }
    /// Packed timecode.
    std::uint64_t currentTime() const { return m_clock.now(); }
    /// The rate that the clock ticks at, or would tick at if started now.
    const FrameRate& tickingRate() const { return m_clock.tickingRate(); }
    /// Whether the clock has counted to the stop time. Then the current stripe ends after ticked().
    bool hasReachedStop() const {
        return m_clock.hasTicked() && m_clock.now() >= m_progress.currentStop;
    }
    /// Time until the pause between two items ends, even if Play has interrupted it. Empty if there
    /// is no pause.
    std::optional<RunLoop::Seconds> pauseLeft() const;
    /// The item that waits for its reel; null if none does.
    const BatchItemRef& awaited() const { return m_awaited; }
    const ItemSequence& items() const { return m_items; }
    const StripePlan& plan() const { return m_plan; }

    /// A batch run always begins with its first item, even after a pause. A pause between items
    /// continues, and is followed by the item after that one.
    void play(From from);
    void pause() { interrupt(Phase::paused); }
    void stop() { interrupt(Phase::stopped); }
    /// Starts the item whose reel was awaited, if any.
    void reelLoaded();

Q_SIGNALS:
    void itemLeft(const vexa::BatchItemRef& item, bool finished);
    /// Another item of the batch run has started. Its rate and sync type are now the plan's.
    void itemTaken();
    /// Follows the two signals above if they belong to the same change.
    void phaseChanged();
    /// The clock counted a frame.
    void ticked();
    /// The pause between two items is over, whether or not there is another item.
    void pauseEnded();
    /// The run waits for reelLoaded() or stop().
    void reelNeeded(std::uint64_t reel);
    /// The run ended by itself.
    void ended(vexa::StripeRun::End how);

private:
    struct ItemChange {
        BatchItemRef left = nullptr;
        bool leftFinished = false;
        bool taken = false;
    };

    void interrupt(Phase phase);
    void tick();
    void beginPause();
    void endPause();
    void end(End how);
    void take(const BatchItemRef& item);
    void takeNext(const BatchItemRef& item);
    void runGenerator();
    void enter(Phase phase, const ItemChange& change);

    RunLoop& m_runLoop;
    VexaBatchStripeData& m_list;
    GeneratorLink& m_link;
    StripePlan& m_plan;
    StripeClock m_clock;
    ItemSequence m_items;
    Progress m_progress;
    BatchItemRef m_awaited; ///< starts when its reel is loaded
    std::unique_ptr<RunLoopTimer> m_pauseTimer;
};

} // namespace vexa
