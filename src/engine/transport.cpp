#include "engine/Vexa_RemoteAppDelegate.h"

#include <utility>

namespace vexa {

void Vexa_RemoteAppDelegate::handleStripeMenuItems(std::uint64_t tag) {
    setTransportState(tag);
    setTransportButton(tag);
}

void Vexa_RemoteAppDelegate::setTransportState(std::uint64_t state) {
    m_prevTransportState = m_transportState;
    switch (state) {
    case transport::playing:
        if (m_plan.useBatch && m_plan.batchMode != batchModeAll)
            m_batchStripeData.setSelection(m_outlets.batchTable->selectedRowIndexes());
        if (m_plan.useBatch)
            m_outlets.batchTable->clearMarks();
        m_run.play(m_prevTransportState == transport::stopped ? StripeRun::From::startTime
                                                              : StripeRun::From::clock);
        break;
    case transport::stopped:
        m_outlets.currentStripeItemLabel->setStringValue({});
        m_run.stop();
        break;
    case transport::paused:
        m_run.pause();
        break;
    default:
        m_transportState = state;
        Q_EMIT stateChanged();
    }
}

void Vexa_RemoteAppDelegate::connectRun() {
    connect(&m_run, &StripeRun::phaseChanged, this, &Vexa_RemoteAppDelegate::showPhase);
    connect(&m_run, &StripeRun::ticked, this,
            [this] { m_outlets.currentTimeButton->setBcdValue(m_run.currentTime()); });
    connect(&m_run, &StripeRun::itemTaken, this, &Vexa_RemoteAppDelegate::showItem);
    connect(&m_run, &StripeRun::itemLeft, this, [this](const BatchItemRef& item, bool finished) {
        m_outlets.batchTable->markItem(item, finished ? StripeMark::finished : StripeMark::none);
    });
    connect(&m_run, &StripeRun::pauseEnded, this, [this] { m_blink.stop(); });
    connect(&m_run, &StripeRun::reelNeeded, this, &Vexa_RemoteAppDelegate::changeReel);
    connect(&m_run, &StripeRun::ended, this, &Vexa_RemoteAppDelegate::showEnd);
}

void Vexa_RemoteAppDelegate::showPhase() {
    const auto state = transportStateOf(m_run.progress());
    if (state != m_transportState)
        m_prevTransportState = std::exchange(m_transportState, state);
    switch (m_run.progress().phase) {
    case Phase::running:
        m_outlets.currentTimeButton->setBcdValue(m_run.currentTime());
        break;
    case Phase::betweenItems:
        m_outlets.currentStripeItemLabel->setStringValue({});
        m_blink.start();
        break;
    case Phase::stopped:
    case Phase::paused:
        m_blink.cancel();
        break;
    case Phase::awaitingReel:
        break;
    }
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::showItem() {
    const auto& item = m_run.progress().item;
    if (item)
        m_outlets.batchTable->markItem(item, StripeMark::underWay);
    m_outlets.currentStripeItemLabel->setStringValue(m_batchStripeData.titleOfItem(item));
    announceFrameRate();
    showSettings(m_run.currentTime(), m_run.progress().currentStop);
}

void Vexa_RemoteAppDelegate::showEnd(StripeRun::End how) {
    m_outlets.currentStripeItemLabel->setStringValue({});
    setTransportButton(transport::stopped);
    if (how == StripeRun::End::stopTimeReached)
        restoreCurrentSettings();
}

void Vexa_RemoteAppDelegate::changeReel(std::uint64_t reel) {
    const int answer = m_outlets.alerts->runModal(
        {.message = QStringLiteral("Time to change reels"),
         .information = QStringLiteral("Please load reel %1, then hit Continue")
                            .arg(static_cast<std::int64_t>(reel)),
         .buttons = {QStringLiteral("Continue")},
         .comesUnasked = true});
    if (answer != alertUnanswered && m_transportState != transport::stopped)
        m_run.reelLoaded();
    else
        handleStripeMenuItems(transport::stopped);
}

} // namespace vexa
