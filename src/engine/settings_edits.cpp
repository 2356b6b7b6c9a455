#include "engine/TimecodeDisplay.h"
#include "engine/Vexa_RemoteAppDelegate.h"

namespace vexa {

namespace {

constexpr int startTimeTag = 0;
constexpr int stopTimeTag = 1;
constexpr double leastStripeSeconds = 5;

} // namespace

void Vexa_RemoteAppDelegate::handleStartTimeButton() {
    if (m_outlets.endTimeButton->state() != 0)
        m_outlets.endTimeButton->setState(0);
}

void Vexa_RemoteAppDelegate::handleStopTimeButton() {
    if (m_outlets.endTimeButton->state() == 0)
        return;
    m_prevStopTimeSet = m_stopTimeSet;
    m_outlets.startTimeButton->setState(0);
    if (!m_stopTimeSet) {
        m_stopTimeSet = true;
        m_outlets.stopTimeCheck->setState(true);
    }
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::pushStopTimePastStart() {
    m_outlets.endTimeButton->setBcdValue(m_startTime);
    m_outlets.endTimeButton->incFrames(
        static_cast<std::uint64_t>(frameCount() * leastStripeSeconds));
    m_stopTime = m_outlets.endTimeButton->bcdValue();
}

void Vexa_RemoteAppDelegate::timeChanged(TimecodeDisplay& sender) {
    const std::uint64_t entered = sender.bcdValue();
    const auto oldStart = m_startTime;
    const auto oldStop = m_stopTime;
    if (sender.tag() == stopTimeTag) {
        if (m_startTime < entered)
            m_stopTime = entered;
        else
            pushStopTimePastStart();
        m_outlets.addToBatchButton->setHidden(false);
        registerEdit(QStringLiteral("Change Stop Time"),
                     [this, oldStop, flag = m_prevStopTimeSet](const QString& name) {
                         setStopTime(oldStop, flag, name);
                     });
    } else if (sender.tag() == startTimeTag) {
        m_startTime = entered;
        if (m_stopTimeSet && m_stopTime <= m_startTime)
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
    m_undoManager.setActionName(actionName);
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::setStartTime(std::uint64_t start, std::uint64_t stop,
                                          const QString& actionName) {
    const auto oldStart = m_startTime;
    const auto oldStop = m_stopTime;
    m_startTime = start;
    m_outlets.startTimeButton->setBcdValue(start);
    if (m_stopTime != stop) {
        m_stopTime = stop;
        m_outlets.endTimeButton->setBcdValue(stop);
    }
    registerEdit(actionName, [this, oldStart, oldStop](const QString& name) {
        setStartTime(oldStart, oldStop, name);
    });
}

void Vexa_RemoteAppDelegate::setStopTime(std::uint64_t stop, bool flag, const QString& actionName) {
    const auto oldStop = m_stopTime;
    m_stopTime = stop;
    m_outlets.endTimeButton->setBcdValue(stop);
    m_prevStopTimeSet = m_stopTimeSet;
    m_stopTimeSet = flag && m_startTime < stop;
    m_outlets.stopTimeCheck->setState(m_stopTimeSet);
    registerEdit(actionName, [this, oldStop, oldFlag = m_prevStopTimeSet](const QString& name) {
        setStopTime(oldStop, oldFlag, name);
    });
}

void Vexa_RemoteAppDelegate::handleStopTimeCheck() {
    setStopTimeSet(m_outlets.stopTimeCheck->state(), m_stopTime, QStringLiteral("Set Stop Time"));
}

void Vexa_RemoteAppDelegate::setStopTimeSet(bool flag, std::uint64_t stopTime,
                                            const QString& actionName) {
    const auto oldStop = m_stopTime;
    m_stopTime = stopTime;
    m_prevStopTimeSet = m_stopTimeSet;
    m_stopTimeSet = flag;
    if (flag && stopTime <= m_startTime)
        pushStopTimePastStart();
    m_outlets.stopTimeCheck->setState(flag);
    m_outlets.addToBatchButton->setHidden(!flag);
    m_outlets.endTimeButton->setBcdValue(m_stopTime);
    registerEdit(actionName, [this, oldFlag = m_prevStopTimeSet, oldStop](const QString& name) {
        setStopTimeSet(oldFlag, oldStop, name);
    });
}

void Vexa_RemoteAppDelegate::handleFrameRateRadios() {
    handleFrameRateMenuItems(m_outlets.frameRateMatrix->selectedTag());
}

void Vexa_RemoteAppDelegate::handleFrameRateMenuItems(std::uint64_t tag) {
    undoRedoSetFrameRate(tag, QStringLiteral("Change Frame Rate"));
}

void Vexa_RemoteAppDelegate::undoRedoSetFrameRate(std::uint64_t code, const QString& actionName) {
    const auto old = m_frameRate;
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
    const auto old = m_syncType;
    m_syncType = code;
    handleFrameRateEnabling();
    m_outlets.syncTypeMatrix->selectCellWithTag(m_syncType);
    registerEdit(actionName, [this, old](const QString& name) { undoRedoSetSyncType(old, name); });
}

} // namespace vexa
