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

/// Puts the state of the controller's run into words, with what concerns the operator. Main thread
/// only.
class RunTeller : public QObject {
    Q_OBJECT

public:
    /// The controller must outlive this.
    explicit RunTeller(const Vexa_RemoteAppDelegate& controller);

    /// now: local time of day. Takes constant time unless the list has changed.
    RunLine line(const QTime& now);
    /// The title of the current or interrupted item; otherwise empty.
    QString itemTitle() const { return VexaBatchStripeData::titleOfItem(m_item); }
    /// entry: why the typed time has not been committed; empty if none is pending.
    StatusLine status(const QString& entry);
    /// The time left of the current item or single stripe; empty if it does not end by itself.
    std::optional<RunLoop::Seconds> leftOfItem() const { return m_times.leftOfItem(); }
    /// The time left of the run; empty if it does not end by itself.
    std::optional<RunLoop::Seconds> leftOfRun() { return m_times.leftOfRun().time; }
    /// The duration of a stripe with the current settings, "lasts 10:00"; empty if it never ends.
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
    BatchItemRef m_item; ///< current or interrupted
    bool m_beganWithSelection = false;
    std::set<BatchItemRef> m_finished; ///< in the current run
    std::optional<ItemSequence::Revision> m_rowsRevision;
    BatchItemRef m_rowsItem;
    QString m_rows;
};

} // namespace vexa
