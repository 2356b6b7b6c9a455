#include "app/TimerfdRunLoop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <gtest/gtest.h>

using namespace vexa;
using namespace std::chrono_literals;

namespace {

struct TimerfdTimers : testing::Test {
    /// Runs the event loop until the condition holds, for ten seconds at most.
    template<typename Condition>
    bool runUntil(Condition condition) {
        const QDeadlineTimer deadline(10s);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        return condition();
    }

    TimerfdRunLoop runLoop;
    int fired = 0;
};

TEST_F(TimerfdTimers, ARepeatingTimerFiresOnItsGrid) {
    QElapsedTimer clock;
    clock.start();
    const auto timer = runLoop.scheduleTimer(10ms, true, [this] { ++fired; });
    EXPECT_EQ(fired, 0) << "never within the call";
    ASSERT_TRUE(runUntil([this] { return fired == 10; }));
    EXPECT_GE(clock.nsecsElapsed(), 100'000'000) << "a timer must not run ahead of its grid";
    EXPECT_TRUE(timer->isValid());
}

TEST_F(TimerfdTimers, ASingleShotFiresOnceAndIsThenInvalid) {
    const auto once = runLoop.scheduleTimer(1ms, false, [this] { ++fired; });
    int others = 0;
    const auto other = runLoop.scheduleTimer(5ms, true, [&] { ++others; });
    ASSERT_TRUE(runUntil([&] { return others == 4; }));
    EXPECT_EQ(fired, 1);
    EXPECT_FALSE(once->isValid());
}

TEST_F(TimerfdTimers, TheTimeLeftGoesDownToNothing) {
    const auto once = runLoop.scheduleTimer(10s, false, [] {});
    EXPECT_LE(once->timeLeft(), 10s);
    EXPECT_GT(once->timeLeft(), 5s);
    once->invalidate();
    EXPECT_EQ(once->timeLeft(), 0s);
    const auto repeating = runLoop.scheduleTimer(10ms, true, [this] { ++fired; });
    ASSERT_TRUE(runUntil([this] { return fired == 2; }));
    EXPECT_LE(repeating->timeLeft(), 10ms);
}

TEST_F(TimerfdTimers, NoIntervalMeansTheNextPass) {
    for (const auto interval : {0s, -5s}) {
        fired = 0;
        const auto timer = runLoop.scheduleTimer(interval, false, [this] { ++fired; });
        EXPECT_EQ(fired, 0);
        EXPECT_TRUE(runUntil([this] { return fired == 1; }));
    }
}

TEST_F(TimerfdTimers, AnEndlessIntervalIsHarmless) {
    const auto timer = runLoop.scheduleTimer(RunLoop::Seconds(1e300), false, [this] { ++fired; });
    const auto other = runLoop.scheduleTimer(1ms, false, [this] { fired += 10; });
    EXPECT_TRUE(runUntil([this] { return fired == 10; }));
    EXPECT_TRUE(timer->isValid());
}

TEST_F(TimerfdTimers, InvalidatedOrDestroyedItFiresNoMore) {
    auto invalidated = runLoop.scheduleTimer(1ms, true, [this] { fired += 100; });
    auto destroyed = runLoop.scheduleTimer(1ms, true, [this] { fired += 100; });
    invalidated->invalidate();
    destroyed.reset();
    const auto other = runLoop.scheduleTimer(5ms, true, [this] { ++fired; });
    ASSERT_TRUE(runUntil([this] { return fired >= 3; }));
    EXPECT_LT(fired, 100);
    EXPECT_FALSE(invalidated->isValid());
}

TEST_F(TimerfdTimers, ATimerMayDestroyItselfAndStartAnother) {
    std::unique_ptr<RunLoopTimer> timer;
    timer = runLoop.scheduleTimer(1ms, true, [&] {
        timer.reset();
        ++fired;
        timer = runLoop.scheduleTimer(1ms, true, [&] {
            timer.reset();
            ++fired;
        });
    });
    EXPECT_TRUE(runUntil([this] { return fired == 2; }));
}

TEST_F(TimerfdTimers, MissedFiringsAreOneTick) {
    const auto timer = runLoop.scheduleTimer(5ms, true, [this] { ++fired; });
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 60) { // blocks the event loop
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(fired, 1);
}

} // namespace
