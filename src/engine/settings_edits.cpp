#include "engine/Vexa_RemoteAppDelegate.h"
#include "engine/least_stripe.h"

namespace vexa {

void Vexa_RemoteAppDelegate::handleStartTimeButton() {
    if (m_outlets.endTimeButton->state() != 0)
        m_outlets.endTimeButton->setState(0);
}

void Vexa_RemoteAppDelegate::handleStopTimeButton() {
    if (m_outlets.endTimeButton->state() == 0)
        return;
    m_prevStopTimeSet = m_plan.stopTimeSet;
    m_outlets.startTimeButton->setState(0);
    if (!m_plan.stopTimeSet) {
        m_plan.stopTimeSet = true;
        m_outlets.stopTimeCheck->setState(true);
    }
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::pushStopTimePastStart() {
    m_plan.settings.stopTime = leastStopTime(startTime(), frameRate());
    m_outlets.endTimeButton->setBcdValue(stopTime());
}

void Vexa_RemoteAppDelegate::timeChanged(int tag, std::uint64_t entered) {
    const auto oldStart = m_plan.settings.startTime;
    const auto oldStop = m_plan.settings.stopTime;
    if (tag == time_tag::stop) {
        if (m_plan.settings.startTime < entered)
            m_plan.settings.stopTime = entered;
        else
            pushStopTimePastStart();
        m_outlets.addToBatchButton->setHidden(false);
        registerEdit(QStringLiteral("Change Stop Time"),
                     [this, oldStop, flag = m_prevStopTimeSet](const QString& name) {
                         setStopTime(oldStop, flag, name);
                     });
    } else if (tag == time_tag::start) {
        m_plan.settings.startTime = entered;
        if (m_plan.stopTimeSet && m_plan.settings.stopTime <= m_plan.settings.startTime)
            pushStopTimePastStart();
        registerEdit(QStringLiteral("Change Start Time"),
                     [this, oldStart, oldStop](const QString& name) {
                         setStartTime(oldStart, oldStop, name);
                     });
    }
}

void Vexa_RemoteAppDelegate::registerEdit(const QString& actionName,
                                          std::function<void(const QString&)> inverse) {
    m_undoManager.registerUndo([actionName, inverse = std::move(inverse)] { inverse(actionName); });
    m_undoManager.setActionName(actionName); // announces the change of state
}

void Vexa_RemoteAppDelegate::undo() {
    m_outlets.batchTable->commitEditing();
    m_undoManager.undo();
}

void Vexa_RemoteAppDelegate::redo() {
    m_outlets.batchTable->commitEditing();
    m_undoManager.redo();
}

void Vexa_RemoteAppDelegate::setStartTime(std::uint64_t start, std::uint64_t stop,
                                          const QString& actionName) {
    const auto oldStart = m_plan.settings.startTime;
    const auto oldStop = m_plan.settings.stopTime;
    m_plan.settings.startTime = start;
    m_outlets.startTimeButton->setBcdValue(start);
    if (m_plan.settings.stopTime != stop) {
        m_plan.settings.stopTime = stop;
        m_outlets.endTimeButton->setBcdValue(stop);
    }
    registerEdit(actionName, [this, oldStart, oldStop](const QString& name) {
        setStartTime(oldStart, oldStop, name);
    });
}

void Vexa_RemoteAppDelegate::setStopTime(std::uint64_t stop, bool flag, const QString& actionName) {
    const auto oldStop = m_plan.settings.stopTime;
    m_plan.settings.stopTime = stop;
    m_outlets.endTimeButton->setBcdValue(stop);
    m_prevStopTimeSet = m_plan.stopTimeSet;
    m_plan.stopTimeSet = flag && m_plan.settings.startTime < stop;
    m_outlets.stopTimeCheck->setState(m_plan.stopTimeSet);
    registerEdit(actionName, [this, oldStop, oldFlag = m_prevStopTimeSet](const QString& name) {
        setStopTime(oldStop, oldFlag, name);
    });
}

void Vexa_RemoteAppDelegate::handleStopTimeCheck() {
    setStopTimeSet(m_outlets.stopTimeCheck->state(), m_plan.settings.stopTime,
                   QStringLiteral("Set Stop Time"));
}

void Vexa_RemoteAppDelegate::setStopTimeSet(bool flag, std::uint64_t stopTime,
                                            const QString& actionName) {
    const auto oldStop = m_plan.settings.stopTime;
    m_plan.settings.stopTime = stopTime;
    m_prevStopTimeSet = m_plan.stopTimeSet;
    m_plan.stopTimeSet = flag;
    if (flag && stopTime <= m_plan.settings.startTime)
        pushStopTimePastStart();
    m_outlets.stopTimeCheck->setState(flag);
    m_outlets.addToBatchButton->setHidden(!flag);
    m_outlets.endTimeButton->setBcdValue(m_plan.settings.stopTime);
    registerEdit(actionName, [this, oldFlag = m_prevStopTimeSet, oldStop](const QString& name) {
        setStopTimeSet(oldFlag, oldStop, name);
    });
}

void Vexa_RemoteAppDelegate::handleSetStopTimeMenu() {
    setStopTimeSet(!stopTimeSet(), stopTime(), QStringLiteral("Set Stop Time"));
}

void Vexa_RemoteAppDelegate::handleFrameRateRadios() {
    handleFrameRateMenuItems(m_outlets.frameRateMatrix->selectedTag());
}

void Vexa_RemoteAppDelegate::handleFrameRateMenuItems(std::uint64_t tag) {
    undoRedoSetFrameRate(tag, QStringLiteral("Change Frame Rate"));
}

void Vexa_RemoteAppDelegate::undoRedoSetFrameRate(std::uint64_t code, const QString& actionName) {
    const auto old = m_plan.settings.frameRate;
    setFrameRate(code);
    handleFrameRateEnabling();
    registerEdit(actionName, [this, old](const QString& name) { undoRedoSetFrameRate(old, name); });
}

void Vexa_RemoteAppDelegate::handleSyncTypeRadios() {
    handleSyncTypeMenuItems(m_outlets.syncTypeMatrix->selectedTag());
}

void Vexa_RemoteAppDelegate::handleSyncTypeMenuItems(std::uint64_t tag) {
    undoRedoSetSyncType(tag, QStringLiteral("Change Sync Type"));
}

void Vexa_RemoteAppDelegate::undoRedoSetSyncType(std::uint64_t code, const QString& actionName) {
    const auto old = m_plan.settings.syncType;
    m_plan.settings.syncType = code;
    handleFrameRateEnabling();
    m_outlets.syncTypeMatrix->selectCellWithTag(m_plan.settings.syncType);
    registerEdit(actionName, [this, old](const QString& name) { undoRedoSetSyncType(old, name); });
}

} // namespace vexa
