#pragma once

#include "engine/TransportBlink.h"
#include "engine/outlets.h"
#include "stripe/StripeRun.h"

#include <QObject>

namespace vexa {

/// Shows through the outlets how a run gets on: the time, the marks of its rows, the title of its
/// item, and the pause between two items by the transport's buttons.
class RunDisplay : public QObject {
    Q_OBJECT

public:
    /// The run loop and the run must outlive this.
    RunDisplay(const Outlets& outlets, RunLoop& runLoop, const StripeRun& run);

    void clearTitle() { showTitle({}); }
    /// Forgets what the rows show of an earlier run.
    void clearMarks() { m_outlets.batchTable->clearMarks(); }

private:
    void showPhase();
    void showItem();
    void showLeft(const BatchItemRef& item, bool finished);
    void showTime() { m_outlets.currentTimeButton->setBcdValue(m_run.currentTime()); }
    void showTitle(const QString& title);
    void markNext(Phase interrupted);

    const Outlets m_outlets;
    const StripeRun& m_run;
    TransportBlink m_blink;
    Phase m_phase = Phase::stopped; ///< that shows
    BatchItemRef m_awaited;         ///< the item whose reel is to be loaded
};

} // namespace vexa
