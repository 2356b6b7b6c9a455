#include "batch/VexaBatchStripeData.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"

#include <utility>

namespace vexa {

namespace {
constexpr RunLoop::Seconds blinkInterval{0.5};
}

void Vexa_RemoteAppDelegate::startBatchRun() {
    // Always from the first item, also after a pause.
    if (m_batchMode != batchModeAll)
        m_batchStripeData->setSelection(m_outlets.batchTable->selectedRowIndexes());
    const auto item = m_batchMode != batchModeAll ? m_batchStripeData->firstSelectedItem()
                                                  : m_batchStripeData->firstItem();
    countItemsToStripe();
    saveCurrentSettings();
    m_outlets.batchTable->clearMarks();
    m_currentReel = m_batchStripeData->reelOfItem(item);
    takeUpItem(item);
    showItem(item);
}

void Vexa_RemoteAppDelegate::countItemsToStripe() {
    m_itemsToStripe = m_batchMode != batchModeAll ? m_batchStripeData->numSelectedItems()
                                                  : m_batchStripeData->numItems();
    m_currentStripeItem = 0;
}

void Vexa_RemoteAppDelegate::takeUpItem(const BatchItemRef& item) {
    m_currentTime = m_batchStripeData->startOfItem(item);
    m_currentStopTime = m_batchStripeData->stopOfItem(item);
    setFrameRate(m_batchStripeData->rateOfItem(item));
    m_syncType = m_batchStripeData->typeOfItem(item);
    m_itemUnderWay = item;
    if (item)
        m_outlets.batchTable->markItem(item, StripeMark::underWay);
}

void Vexa_RemoteAppDelegate::leaveItem(StripeMark mark) {
    if (const auto item = std::exchange(m_itemUnderWay, nullptr))
        m_outlets.batchTable->markItem(item, mark);
}

void Vexa_RemoteAppDelegate::showItem(const BatchItemRef& item) {
    m_outlets.currentStripeItemLabel->setStringValue(m_batchStripeData->titleOfItem(item));
    showSettings(m_currentTime, m_currentStopTime);
}

void Vexa_RemoteAppDelegate::startBatchPause() {
    m_pauseTimer = m_runLoop.scheduleTimer(RunLoop::Seconds(m_delayInSeconds), false,
                                           [this] { endBatchPause(); });
    startBlink();
}

void Vexa_RemoteAppDelegate::endBatchPause() {
    countItemsToStripe();
    const auto item = m_batchMode != batchModeAll ? m_batchStripeData->nextSelectedItem()
                                                  : m_batchStripeData->nextItem();
    if (item) {
        const auto reel = m_batchStripeData->reelOfItem(item);
        if (m_pauseForReelChange && reel != m_currentReel) {
            m_currentReel = reel;
            if (!changeReel(static_cast<std::int64_t>(reel)))
                return handleStripeMenuItems(transport::stopped);
        }
        takeUpItem(item);
        sendSetupAndStart();
        startTimer();
        showItem(item);
    } else {
        setTransportState(transport::stopped);
        m_currentTime = m_currentStopTime;
        setTransportButton(transport::stopped);
        m_outlets.currentStripeItemLabel->setStringValue({});
    }
    stopBlink();
    m_pauseTimer.reset();
}

bool Vexa_RemoteAppDelegate::changeReel(std::int64_t reel) {
    m_waitingForReelChange = true;
    const int answer = m_outlets.alerts->runModal(
        {.message = QStringLiteral("Time to change reels"),
         .information = QStringLiteral("Please load reel %1, then hit Continue").arg(reel),
         .buttons = {QStringLiteral("Continue")},
         .comesUnasked = true});
    m_waitingForReelChange = false;
    return answer != alertUnanswered && m_transportState != transport::stopped;
}

void Vexa_RemoteAppDelegate::startBlink() {
    m_blinkTimer = m_runLoop.scheduleTimer(blinkInterval, true, [this] { blink(); });
    m_blinkState = false;
}

void Vexa_RemoteAppDelegate::blink() {
    setTransportButton(m_blinkState ? transport::playing : transport::paused);
    m_blinkState = !m_blinkState;
}

void Vexa_RemoteAppDelegate::stopBlink() {
    m_blinkTimer.reset();
    setTransportButton(transport::playing);
}

} // namespace vexa
