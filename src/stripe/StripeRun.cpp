#include "stripe/StripeRun.h"

#include <utility>

namespace vexa {

StripeRun::StripeRun(RunLoop& runLoop, VexaBatchStripeData& list, GeneratorLink& link,
                     StripePlan& plan)
    : m_runLoop(runLoop),
      m_list(list),
      m_link(link),
      m_plan(plan),
      m_clock(runLoop, plan.settings, [this] { tick(); }),
      m_items(list, plan) {}

std::optional<RunLoop::Seconds> StripeRun::pauseLeft() const {
    if (!m_pauseTimer)
        return {};
    return m_pauseTimer->timeLeft();
}

void StripeRun::play(From from) {
    m_awaited = nullptr;
    m_progress.pastFirstItem = false;
    const auto left = std::exchange(m_progress.item, nullptr);
    if (m_plan.useBatch) {
        const auto first = m_items.first();
        m_progress.itemsToStripe = m_items.count();
        m_progress.reel = m_list.reelOfItem(first);
        m_plan.saved = m_plan.settings;
        take(first);
    } else {
        if (from == From::startTime)
            m_clock.set(m_plan.settings.startTime);
        m_progress.currentStop = m_plan.settings.stopTime;
    }
    m_link.stop();
    runGenerator();
    enter(Phase::running, {.left = left, .taken = m_plan.useBatch});
}

void StripeRun::take(const BatchItemRef& item) {
    m_clock.set(m_list.startOfItem(item));
    m_progress.currentStop = m_list.stopOfItem(item);
    m_plan.settings.frameRate = m_list.rateOfItem(item);
    m_plan.settings.syncType = m_list.typeOfItem(item);
    m_progress.item = item;
}

void StripeRun::runGenerator() {
    const auto& settings = m_plan.settings;
    m_link.run({m_clock.now(), m_progress.currentStop, settings.frameRate, settings.syncType});
    m_clock.start();
}

void StripeRun::interrupt(Phase phase) {
    m_clock.stop();
    m_pauseTimer.reset();
    m_awaited = nullptr;
    m_link.stop();
    enter(phase, {.left = std::exchange(m_progress.item, nullptr)});
}

void StripeRun::tick() {
    Q_EMIT ticked();
    if ((!m_plan.useBatch && !m_plan.stopTimeSet) || !hasReachedStop())
        return;
    if (m_plan.useBatch && m_items.hasMore())
        beginPause();
    else
        end(End::stopTimeReached);
}

void StripeRun::beginPause() {
    m_clock.stop();
    m_pauseTimer =
        m_runLoop.scheduleTimer(m_plan.pauseBetweenItems(), false, [this] { endPause(); });
    m_link.stop();
    m_progress.pastFirstItem = true;
    enter(Phase::betweenItems,
          {.left = std::exchange(m_progress.item, nullptr), .leftFinished = true});
}

void StripeRun::endPause() {
    m_pauseTimer.reset();
    m_progress.itemsToStripe = m_items.count();
    const auto item = m_items.next();
    if (!item)
        return end(End::noItemLeft);
    const auto reel = m_list.reelOfItem(item);
    if (!m_plan.pauseForReelChange || reel == m_progress.reel)
        return takeNext(item);
    m_clock.stop();
    m_progress.reel = reel;
    m_awaited = item;
    enter(Phase::awaitingReel, {});
    Q_EMIT reelNeeded(reel);
}

void StripeRun::reelLoaded() {
    if (m_awaited)
        takeNext(std::exchange(m_awaited, nullptr));
}

void StripeRun::takeNext(const BatchItemRef& item) {
    const auto left = std::exchange(m_progress.item, nullptr);
    take(item);
    runGenerator();
    enter(Phase::running, {.left = left, .taken = true});
    Q_EMIT pauseEnded();
}

void StripeRun::end(End how) {
    m_clock.stop();
    m_pauseTimer.reset();
    m_clock.set(m_progress.currentStop);
    m_link.stop();
    if (how == End::stopTimeReached)
        m_link.stop();
    enter(Phase::stopped, {.left = std::exchange(m_progress.item, nullptr),
                           .leftFinished = how == End::stopTimeReached});
    Q_EMIT ended(how);
    if (how == End::noItemLeft)
        Q_EMIT pauseEnded();
}

void StripeRun::enter(Phase phase, const ItemChange& change) {
    m_progress.phase = phase;
    if (change.left)
        Q_EMIT itemLeft(change.left, change.leftFinished);
    if (change.taken)
        Q_EMIT itemTaken();
    Q_EMIT phaseChanged();
}

} // namespace vexa
