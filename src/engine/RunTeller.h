#pragma once

#include "engine/run_line.h"
#include "engine/run_rows.h"
#include "engine/status_line.h"
#include "stripe/RunTimes.h"

#include <QObject>

#include <set>
#include <utility>

namespace vexa {

class Vexa_RemoteAppDelegate;

/// Tells in words what the controller's run is doing, and what concerns the operator. Main thread
/// only.
class RunTeller : public QObject {
    Q_OBJECT

public:
    /// The controller must outlive this.
    explicit RunTeller(const Vexa_RemoteAppDelegate& controller);

    /// now: local time of day. Costs as much for a long list as for a short one, unless that has
    /// changed.
    RunLine line(const QTime& now);
    /// Of the item under way or interrupted; empty otherwise.
    QString itemTitle() const { return VexaBatchStripeData::titleOfItem(m_item); }
    /// entry: why a time that is typed has not been taken, if so.
    StatusLine status(const QString& entry);
    /// Of the item or single stripe under way; nothing where it does not end by itself.
    std::optional<RunLoop::Seconds> leftOfItem() const { return m_times.leftOfItem(); }
    /// How long the stripe of the settings lasts, "lasts 10:00"; empty where it has no end.
    QString lasts() const;

private:
    void followItem();
    void followPhase();
    RunSituation situation(const QTime& now);
    void describeRun(RunSituation& now);
    void describeItems(RunSituation& now);
    const ListTotal& total();
    const QString& rows();

    const Vexa_RemoteAppDelegate& m_controller;
    const StripeRun& m_run;
    RunTimes m_times{m_run};
    std::optional<std::pair<std::uint64_t, RunLoop::Seconds>> m_totalAsked;
    ListTotal m_total;
    BatchItemRef m_item; ///< under way or interrupted
    bool m_beganWithSelection = false;
    std::set<BatchItemRef> m_finished; ///< by the run under way
    std::optional<ItemSequence::Revision> m_rowsRevision;
    BatchItemRef m_rowsItem;
    QString m_rows;
};

} // namespace vexa
