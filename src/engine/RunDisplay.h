#pragma once

#include "engine/TransportBlink.h"
#include "engine/outlets.h"
#include "stripe/StripeRun.h"

#include <QObject>

namespace vexa {

/// Shows the progress of a run through the outlets: the time, the marks of its rows, the current
/// item's title, and the pause between items on the transport's buttons.
class RunDisplay : public QObject {
    Q_OBJECT

public:
    /// The run loop and the run must outlive this.
    RunDisplay(const Outlets& outlets, RunLoop& runLoop, const StripeRun& run);

    void clearTitle() { showTitle({}); }
    /// Clears the marks of an earlier run.
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
    Phase m_phase = Phase::stopped; ///< as shown
    BatchItemRef m_awaited;         ///< the item whose reel is awaited
};

} // namespace vexa
