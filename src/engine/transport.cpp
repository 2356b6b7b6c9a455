#include "engine/TimecodeDisplay.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"

namespace vexa {

namespace {

void cancel(std::unique_ptr<RunLoopTimer>& timer) {
    if (timer && timer->isValid())
        timer.reset();
}

} // namespace

void Vexa_RemoteAppDelegate::handleTransportButtons() {
    setTransportState(m_outlets.transportMatrix->selectedTag());
}

void Vexa_RemoteAppDelegate::setTransportState(std::uint64_t state) {
    m_prevTransportState = m_transportState;
    m_transportState = state;
    if (state == transport::playing)
        startPlay();
    if (state == transport::stopped)
        m_outlets.currentStripeItemLabel->setStringValue({});
    if (state == transport::stopped || state == transport::paused) {
        stopTimer();
        leaveItem(StripeMark::none);
        Vexa_MIDI_Manager::sharedMidiManager().sendStopMessage();
        cancel(m_blinkTimer);
        cancel(m_pauseTimer);
    }
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::setTransportButton(std::uint64_t tag) {
    m_outlets.transportMatrix->selectCellWithTag(tag);
}

void Vexa_RemoteAppDelegate::startPlay() {
    m_waitingForReelChange = false;
    leaveItem(StripeMark::none);
    if (m_useBatch) {
        startBatchRun();
    } else {
        if (m_prevTransportState == transport::stopped)
            m_currentTime = m_startTime;
        m_currentStopTime = m_stopTime;
    }
    Vexa_MIDI_Manager::sharedMidiManager().sendStopMessage();
    sendSetupAndStart();
    startTimer();
}

void Vexa_RemoteAppDelegate::sendSetupAndStart() {
    auto& midi = Vexa_MIDI_Manager::sharedMidiManager();
    midi.sendSetupMessageStart(m_currentTime, m_frameRate, m_syncType);
    midi.sendStartMessage();
}

void Vexa_RemoteAppDelegate::startTimer() {
    stopTimer();
    m_outlets.currentTimeButton->setBcdValue(m_currentTime);
    m_mainTimer = m_runLoop.scheduleTimer(RunLoop::Seconds(frameInterval()), true,
                                          [this] { timerFireMethod(); });
}

void Vexa_RemoteAppDelegate::stopTimer() { m_mainTimer.reset(); }

void Vexa_RemoteAppDelegate::timerFireMethod() {
    if (m_waitingForReelChange)
        return;
    // One frame a tick, whatever the time: the clock is a display and follows nothing else.
    m_outlets.currentTimeButton->incFrames(1);
    m_currentTime = m_outlets.currentTimeButton->bcdValue();
    if (!m_useBatch && !m_stopTimeSet)
        return;
    if (m_currentTime < m_currentStopTime)
        return;

    leaveItem(StripeMark::finished);
    const bool more = m_batchMode != batchModeAll
                          ? m_batchStripeData->areMoreSelectedItemsAvailable()
                          : m_batchStripeData->areMoreItemsAvailable();
    if (m_useBatch && more) {
        setTransportState(transport::pausedBetweenItems);
        stopTimer();
        startBatchPause();
    } else {
        stopTimer();
        setTransportState(transport::stopped);
        m_currentTime = m_currentStopTime;
        setTransportButton(transport::stopped);
        restoreCurrentSettings();
    }
    m_outlets.currentStripeItemLabel->setStringValue({});
    Vexa_MIDI_Manager::sharedMidiManager().sendStopMessage();
}

void Vexa_RemoteAppDelegate::saveCurrentSettings() {
    m_savedStartTime = m_startTime;
    m_savedStopTime = m_stopTime;
    m_savedFrameRate = m_frameRate;
    m_savedSyncType = m_syncType;
}

void Vexa_RemoteAppDelegate::restoreCurrentSettings() {
    m_startTime = m_savedStartTime;
    m_stopTime = m_savedStopTime;
    setFrameRate(m_savedFrameRate);
    m_syncType = m_savedSyncType;
    showSettings(m_startTime, m_stopTime);
}

void Vexa_RemoteAppDelegate::showSettings(std::uint64_t start, std::uint64_t stop) {
    handleFrameRateEnabling();
    m_outlets.syncTypeMatrix->selectCellWithTag(m_syncType);
    m_outlets.startTimeButton->setBcdValue(start);
    m_outlets.endTimeButton->setBcdValue(stop);
    Q_EMIT stateChanged();
}

} // namespace vexa
