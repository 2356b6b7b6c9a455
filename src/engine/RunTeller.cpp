#include "engine/RunTeller.h"

#include "engine/Vexa_RemoteAppDelegate.h"
#include "text/duration_text.h"
#include "timecode/frame_count.h"

#include <QFileInfo>

namespace vexa {

namespace {

/// Null if the row is not in the run.
BatchItemRef itemAt(const ItemSequence& items, std::uint64_t row) {
    return row < items.items().size() ? items.items()[row] : nullptr;
}

bool isInterrupted(Phase phase) { return phase == Phase::stopped || phase == Phase::paused; }

} // namespace

RunTeller::RunTeller(const Vexa_RemoteAppDelegate& controller)
    : m_controller(controller), m_run(controller.run()) {
    connect(&m_run, &StripeRun::itemTaken, this, &RunTeller::followItem);
    connect(&m_run, &StripeRun::phaseChanged, this, &RunTeller::followPhase);
    connect(&m_run, &StripeRun::itemLeft, this, [this](const BatchItemRef& item, bool finished) {
        if (finished)
            m_finished.insert(item);
    });
}

void RunTeller::followPhase() {
    const auto phase = m_run.progress().phase;
    if (phase == Phase::stopped || phase == Phase::betweenItems)
        m_item = nullptr;
}

void RunTeller::followItem() {
    m_item = m_run.progress().item;
    if (m_run.progress().pastFirstItem)
        return;
    m_finished.clear();
    m_beganWithSelection = m_run.plan().batchMode != batchModeAll;
}

RunLine RunTeller::line(const QTime& now) { return runLine(situation(now)); }

RunSituation RunTeller::situation(const QTime& now) {
    RunSituation situation;
    situation.phase = m_run.progress().phase;
    situation.isBatch = m_run.plan().useBatch;
    situation.settings = m_run.plan().settings;
    situation.stopTimeSet = m_run.plan().stopTimeSet;
    situation.title = itemTitle();
    situation.now = now;
    if (situation.phase != Phase::stopped)
        describeRun(situation);
    else if (situation.isBatch)
        describeItems(situation);
    return situation;
}

void RunTeller::describeRun(RunSituation& now) {
    const auto& items = m_run.items();
    const auto row = items.row() + (now.phase == Phase::betweenItems ? 1 : 0);
    const auto& underWay = m_run.progress().item;
    const auto item = underWay ? underWay : itemAt(items, row);
    now.number = row + 1;
    now.items = items.items().size();
    now.reel = VexaBatchStripeData::reelOfItem(item);
    now.nextTitle = VexaBatchStripeData::titleOfItem(item);
    now.leftOfItem = m_times.leftOfItem();
    const auto left = m_times.leftOfRun();
    now.leftOfRun = left.time;
    now.asksForReels = left.reelChanges != 0;
    now.leftOfPause = m_run.pauseLeft();
}

void RunTeller::describeItems(RunSituation& now) {
    const auto& list = m_controller.batchStripeData();
    const auto& table = *m_controller.outlets().batchTable;
    const bool takesAll = m_run.plan().batchMode == batchModeAll;
    const auto items = takesAll ? total()
                                : totalOf(list.itemsOfRows(table.selectedRowIndexes()),
                                          m_run.plan().pauseBetweenItems());
    now.items = items.items;
    now.reels = items.reels;
    now.leftOfRun = items.time;
}

const ListTotal& RunTeller::total() {
    const auto& list = m_controller.batchStripeData();
    const std::pair asked(list.revision(), m_run.plan().pauseBetweenItems());
    if (m_totalAsked != asked) {
        m_totalAsked = asked;
        m_total = totalOf(list.batchList(), asked.second);
    }
    return m_total;
}

StatusLine RunTeller::status(const QString& entry) {
    const auto& plan = m_run.plan();
    const auto& all = total();
    StatusSituation situation;
    situation.entry = entry;
    situation.rows = rows();
    situation.fileTrouble = m_controller.fileTrouble();
    situation.file = QFileInfo(m_controller.url()).fileName();
    situation.useBatch = plan.useBatch;
    situation.stopTimeSet = plan.stopTimeSet;
    situation.items = all.items;
    situation.reels = all.reels;
    situation.time = all.time;
    return statusLine(situation);
}

const QString& RunTeller::rows() {
    const auto& items = m_run.items();
    const auto& progress = m_run.progress();
    if (isInterrupted(progress.phase) || !m_run.plan().useBatch) {
        m_rowsRevision.reset();
        m_rows.clear();
    } else if (m_rowsRevision != items.revision() || m_rowsItem != progress.item) {
        m_rowsRevision = items.revision();
        m_rowsItem = progress.item;
        const auto underWay = progress.item ? progress.item : m_run.awaited();
        auto rows = runRows({m_controller.batchStripeData().batchList(), items.items(),
                             items.row() + 1, underWay, m_finished});
        rows.beganWithSelection = m_beganWithSelection;
        rows.takesSelection = m_run.plan().batchMode != batchModeAll;
        m_rows = runRowsText(rows);
    }
    return m_rows;
}

QString RunTeller::lasts() const {
    const auto& settings = m_run.plan().settings;
    const auto& rate = frameRateForCode(settings.frameRate);
    const auto frames = framesUntil(settings.startTime, settings.stopTime, rate);
    if (!m_run.plan().stopTimeSet || !frames)
        return {};
    const auto time = frameTime(rate) * static_cast<std::int64_t>(*frames);
    return QStringLiteral("lasts %1").arg(QString::fromStdString(durationText(time)));
}

} // namespace vexa
