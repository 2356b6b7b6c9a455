#pragma once

#include "stripe/GeneratorLink.h"
#include "stripe/ItemSequence.h"
#include "stripe/Progress.h"
#include "stripe/StripeClock.h"
#include "stripe/StripePlan.h"

#include <QObject>

#include <optional>

namespace vexa {

/// A run, from Play to its end: a single stripe, or the items of the batch list one after another.
/// It sends the messages, keeps the clock and walks the list; whoever shows it, or asks for a reel,
/// listens. Messages leave before anyone is told, and what progress() and currentTime() say is
/// complete by then. Main thread only.
class StripeRun : public QObject {
    Q_OBJECT

public:
    /// Where Play takes the time of a single stripe from.
    enum class From { startTime, clock };
    enum class End {
        /// The clock reached the stop time of the stripe or of the last item. The generator is
        /// told to stop twice.
        stopTimeReached,
        noItemLeft, ///< the list has become shorter during the pause
    };

    /// All must outlive this.
    StripeRun(RunLoop& runLoop, VexaBatchStripeData& list, GeneratorLink& link, StripePlan& plan);

    const Progress& progress() const { return m_progress; }
    /// Packed timecode.
    std::uint64_t currentTime() const { return m_clock.now(); }
    /// The rate that the clock ticks at, or will when it goes on.
    const FrameRate& tickingRate() const { return m_clock.tickingRate(); }
    /// Whether a frame was counted that reaches the stop time: what is under way ends with it, once
    /// ticked() has been told.
    bool hasReachedStop() const {
        return m_clock.hasTicked() && m_clock.now() >= m_progress.currentStop;
    }
    /// Of the pause between two items, which goes on also where Play breaks into it; else nothing.
    std::optional<RunLoop::Seconds> pauseLeft() const;
    /// The item whose reel is to be loaded; else null.
    const BatchItemRef& awaited() const { return m_awaited; }
    const ItemSequence& items() const { return m_items; }
    const StripePlan& plan() const { return m_plan; }

    /// A batch run always begins with its first item, also after a pause. A pause between items
    /// that is under way goes on, and takes up the item after that one when it ends.
    void play(From from);
    void pause() { interrupt(Phase::paused); }
    void stop() { interrupt(Phase::stopped); }
    /// Takes up the item whose reel was awaited. Without one, nothing happens.
    void reelLoaded();

Q_SIGNALS:
    void itemLeft(const vexa::BatchItemRef& item, bool finished);
    /// Another item of the batch run is under way; its rate and sync type are the plan's now.
    void itemTaken();
    /// After the two above, where they go with it.
    void phaseChanged();
    /// The clock has counted a frame.
    void ticked();
    /// The time between two items is over, whether or not another item was found.
    void pauseEnded();
    /// Nothing goes on before reelLoaded(), or stop().
    void reelNeeded(std::uint64_t reel);
    /// The run came to its end by itself.
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
    BatchItemRef m_awaited;
    std::unique_ptr<RunLoopTimer> m_pauseTimer;
};

} // namespace vexa
