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
            m_display.clearMarks();
        m_run.play(m_prevTransportState == transport::stopped ? StripeRun::From::startTime
                                                              : StripeRun::From::clock);
        break;
    case transport::stopped:
        m_display.clearTitle();
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
    connect(&m_run, &StripeRun::phaseChanged, this, &Vexa_RemoteAppDelegate::followPhase);
    connect(&m_run, &StripeRun::itemTaken, this, [this] {
        announceFrameRate();
        showSettings(m_run.currentTime(), m_run.progress().currentStop);
    });
    connect(&m_run, &StripeRun::reelNeeded, this, &Vexa_RemoteAppDelegate::changeReel);
    connect(&m_run, &StripeRun::ended, this, &Vexa_RemoteAppDelegate::followEnd);
}

void Vexa_RemoteAppDelegate::followPhase() {
    const auto state = transportStateOf(m_run.progress());
    if (state != m_transportState)
        m_prevTransportState = std::exchange(m_transportState, state);
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::followEnd(StripeRun::End how) {
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
