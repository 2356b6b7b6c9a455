#include "engine/RunDisplay.h"

#include "batch/VexaBatchStripeData.h"

#include <utility>

namespace vexa {

RunDisplay::RunDisplay(const Outlets& outlets, RunLoop& runLoop, const StripeRun& run)
    : m_outlets(outlets), m_run(run), m_blink(runLoop, *outlets.transportMatrix) {
    connect(&run, &StripeRun::ticked, this, &RunDisplay::showTime);
    connect(&run, &StripeRun::itemLeft, this, &RunDisplay::showLeft);
    connect(&run, &StripeRun::itemTaken, this, &RunDisplay::showItem);
    connect(&run, &StripeRun::phaseChanged, this, &RunDisplay::showPhase);
    connect(&run, &StripeRun::pauseEnded, this, [this] { m_blink.stop(); });
    connect(&run, &StripeRun::ended, this, &RunDisplay::clearTitle);
}

void RunDisplay::showLeft(const BatchItemRef& item, bool finished) {
    const bool goesOn = m_run.progress().phase == Phase::running;
    const auto unfinished = goesOn ? StripeMark::none : StripeMark::stoppedHere;
    m_outlets.batchTable->markItem(item, finished ? StripeMark::finished : unfinished);
}

void RunDisplay::showItem() {
    const auto& item = m_run.progress().item;
    if (item)
        m_outlets.batchTable->markItem(item, StripeMark::underWay);
    showTitle(VexaBatchStripeData::titleOfItem(item));
}

void RunDisplay::showPhase() {
    const auto before = std::exchange(m_phase, m_run.progress().phase);
    switch (m_phase) {
    case Phase::running:
        m_awaited = nullptr;
        showTime();
        break;
    case Phase::betweenItems:
        clearTitle();
        m_blink.start();
        break;
    case Phase::awaitingReel:
        m_awaited = m_run.awaited();
        break;
    case Phase::stopped:
    case Phase::paused:
        m_blink.cancel();
        markNext(before);
    }
}

/// A run interrupted between two items has stopped at the next one.
void RunDisplay::markNext(Phase interrupted) {
    auto next = std::exchange(m_awaited, nullptr);
    if (interrupted == Phase::betweenItems)
        next = m_run.items().upcoming();
    if (next)
        m_outlets.batchTable->markItem(next, StripeMark::stoppedHere);
}

void RunDisplay::showTitle(const QString& title) {
    m_outlets.currentStripeItemLabel->setStringValue(title);
}

} // namespace vexa
