#include "StripeRig.h"
#include "stripe/transport_state.h"
#include "timecode/frame_number.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;
using From = StripeRun::From;

namespace {

struct Run : testing::Test, StripeRig {
    void setStripe(const char* start, const char* stop, std::uint64_t rate) {
        plan.settings = {packed(start), stop ? packed(stop) : 0, rate, sync::mtc};
        plan.stopTimeSet = stop != nullptr;
    }
    void addThreeItems(std::uint64_t reel1, std::uint64_t reel2, std::uint64_t reel3) {
        addItem(reel1, "one", 1);
        addItem(reel2, "two", 2);
        addItem(reel3, "three", 3);
        plan.useBatch = true;
    }
};

TEST_F(Run, TheGeneratorIsStoppedThenRun) {
    setStripe("01:00:00:00", nullptr, rate::fps30Drop);
    run.play(From::startTime);
    EXPECT_THAT(link.take(), ElementsAre("stop", "run 01:00:00:00 rate 3 type 0"));
    EXPECT_THAT(told, ElementsAre("running"));
    EXPECT_EQ(state(), transport::playing);
}

TEST_F(Run, MessagesHaveLeftAndProgressIsCompleteBeforeAnyoneIsTold) {
    addThreeItems(1, 1, 2);
    std::size_t sent = 0;
    QObject::connect(&run, &StripeRun::phaseChanged, &run, [&] {
        sent = link.take().size();
        EXPECT_EQ(run.progress().item, list.batchList()[0]);
        EXPECT_EQ(run.currentTime(), packed("01:00:00:00"));
        EXPECT_EQ(run.progress().currentStop, packed("01:00:00:03"));
        EXPECT_EQ(run.progress().itemsToStripe, 3u);
        EXPECT_EQ(plan.settings.frameRate, rate::fps25);
    });
    run.play(From::startTime);
    EXPECT_EQ(sent, 2u);
}

TEST_F(Run, WithoutAStopTimeItRunsThroughMidnight) {
    setStripe("23:59:59:29", nullptr, rate::fps30);
    run.play(From::startTime);
    tick();
    EXPECT_EQ(run.currentTime(), 0u);
    EXPECT_EQ(run.progress().phase, Phase::running);
}

TEST_F(Run, ADayLaterTheClockHasShownEveryTimeOfTheDay) {
    for (const auto& rate : frameRates) {
        setStripe("12:00:00:00", nullptr, rate.code);
        run.play(From::startTime);
        const auto first = frameNumber({12, 0, 0, 0}, rate);
        for (std::uint64_t frame = 1; frame <= framesADay(rate); ++frame) {
            tick();
            ASSERT_EQ(run.currentTime(), pack(timeOfFrame(first + frame, rate))) << rate.name;
        }
        EXPECT_EQ(run.currentTime(), packed("12:00:00:00"));
        run.stop();
    }
}

TEST_F(Run, AtItsEndTheGeneratorIsStoppedTwice) {
    setStripe("00:59:59:24", "01:00:00:00", rate::fps25);
    run.play(From::startTime);
    link.take();
    tick();
    EXPECT_THAT(link.take(), ElementsAre("stop", "stop"));
    EXPECT_THAT(told, ElementsAre("running", "stopped", "at its end"));
    EXPECT_THAT(runLoop.liveIntervals(), IsEmpty());
}

TEST_F(Run, AStopTimeThatWasPassedIsTheTimeAtTheEnd) {
    setStripe("03:00:00:00", "02:00:00:00", rate::fps25);
    run.play(From::startTime);
    tick();
    EXPECT_EQ(run.currentTime(), packed("02:00:00:00"));
}

TEST_F(Run, ASingleStripeGoesOnFromTheClockAfterAPause) {
    setStripe("01:00:00:00", nullptr, rate::fps25);
    run.play(From::startTime);
    tick(10);
    run.pause();
    EXPECT_EQ(state(), transport::paused);
    EXPECT_THAT(runLoop.liveIntervals(), IsEmpty());
    link.take();
    run.play(From::clock);
    EXPECT_THAT(link.take(), ElementsAre("stop", "run 01:00:00:10 rate 1 type 0"));
}

TEST_F(Run, ARateChosenInMidRunChangesTheCarryAndNotTheInterval) {
    setStripe("01:00:00:23", nullptr, rate::fps30);
    run.play(From::startTime);
    plan.settings.frameRate = rate::fps24;
    EXPECT_THAT(runLoop.liveIntervals(), ElementsAre(RunLoop::Seconds(1.0 / 30)));
    runLoop.advance(RunLoop::Seconds(1.0 / 30));
    EXPECT_EQ(text(run.currentTime()), "01:00:01:00");
}

TEST_F(Run, AStopTimeSwitchedOnInMidRunCounts) {
    setStripe("01:00:00:00", nullptr, rate::fps25);
    run.play(From::startTime);
    tick(3);
    plan.stopTimeSet = true; // the run took its stop time at the start: 00:00:00:00
    tick();
    EXPECT_EQ(run.progress().phase, Phase::stopped);
}

TEST_F(Run, ABatchRunTakesItsItemsInTurn) {
    addThreeItems(1, 1, 1);
    run.play(From::startTime);
    link.take();
    tick(3);
    EXPECT_THAT(link.take(), ElementsAre("stop"));
    EXPECT_EQ(state(), transport::pausedBetweenItems);
    endPause();
    EXPECT_THAT(link.take(), ElementsAre("run 02:00:00:00 rate 1 type 0"));
    EXPECT_EQ(state(), transport::pausedBetweenItems) << "also while a later item plays";
    tick(3);
    endPause();
    tick(3);
    EXPECT_THAT(told,
                ElementsAre("took one", "running", "finished one", "between items", "took two",
                            "running", "pause ended", "finished two", "between items", "took three",
                            "running", "pause ended", "finished three", "stopped", "at its end"));
}

TEST_F(Run, ABatchRunSavesTheSettingsAndOverwritesRateAndTypeOnly) {
    addThreeItems(1, 1, 1);
    plan.settings = {packed("09:00:00:00"), packed("10:00:00:00"), rate::fps24, sync::dtl};
    const auto before = plan.settings;
    run.play(From::startTime);
    EXPECT_EQ(plan.saved, before);
    EXPECT_EQ(plan.settings,
              (StripeSettings{before.startTime, before.stopTime, rate::fps25, sync::mtc}));
}

TEST_F(Run, AnotherReelIsAwaited) {
    addThreeItems(1, 1, 2);
    run.play(From::startTime);
    tick(3);
    endPause();
    tick(3);
    told.clear();
    link.take();
    endPause();
    EXPECT_THAT(told, ElementsAre("awaiting reel", "reel 2"));
    EXPECT_THAT(link.take(), IsEmpty());
    EXPECT_THAT(runLoop.liveIntervals(), IsEmpty());
    EXPECT_EQ(run.progress().reel, 2u);
    run.reelLoaded();
    EXPECT_THAT(link.take(), ElementsAre("run 03:00:00:00 rate 1 type 0"));
    EXPECT_THAT(told,
                ElementsAre("awaiting reel", "reel 2", "took three", "running", "pause ended"));
    run.reelLoaded();
    EXPECT_THAT(link.take(), IsEmpty()) << "no reel is awaited any more";
}

TEST_F(Run, WhereReelsAreNotAwaitedTheFirstOneGoesOnCounting) {
    plan.pauseForReelChange = false;
    addThreeItems(1, 2, 2);
    run.play(From::startTime);
    tick(3);
    endPause();
    EXPECT_EQ(run.progress().reel, 1u);
    plan.pauseForReelChange = true;
    tick(3);
    endPause();
    EXPECT_EQ(run.progress().phase, Phase::awaitingReel) << "reel 1 still counts as loaded";
}

TEST_F(Run, AStopOrPauseWhileAReelIsAwaitedLetsTheItemGo) {
    for (auto interrupt : {&StripeRun::stop, &StripeRun::pause}) {
        list.clearBatchList();
        addThreeItems(1, 2, 2);
        run.play(From::startTime);
        tick(3);
        endPause();
        (run.*interrupt)();
        link.take();
        run.reelLoaded();
        EXPECT_THAT(link.take(), IsEmpty());
        EXPECT_THAT(runLoop.liveIntervals(), IsEmpty());
    }
}

TEST_F(Run, PlayInThePauseBeginsAnewAndThePauseStillTakesUpAnItem) {
    addThreeItems(1, 1, 1);
    run.play(From::startTime);
    tick(3);
    link.take();
    run.play(From::clock);
    EXPECT_THAT(link.take(), ElementsAre("stop", "run 01:00:00:00 rate 1 type 0"));
    EXPECT_EQ(state(), transport::playing);
    told.clear();
    runLoop.fireTimerOf(RunLoop::Seconds(plan.delayInSeconds));
    EXPECT_THAT(link.take(), ElementsAre("run 02:00:00:00 rate 1 type 0"));
    EXPECT_THAT(told, ElementsAre("left one", "took two", "running", "pause ended"));
    EXPECT_EQ(state(), transport::playing);
}

TEST_F(Run, ItemsThatAreGoneInThePauseEndTheRunWithoutASecondStop) {
    addThreeItems(1, 1, 1);
    run.play(From::startTime);
    tick(3);
    list.deleteIndexedItems({1, 2});
    link.take();
    told.clear();
    endPause();
    EXPECT_THAT(link.take(), ElementsAre("stop"));
    EXPECT_THAT(told, ElementsAre("stopped", "none left", "pause ended"));
    EXPECT_EQ(run.progress().itemsToStripe, 1u);
    EXPECT_EQ(run.currentTime(), packed("01:00:00:03"));
}

TEST_F(Run, AnEmptyListEndsAtItsFirstTick) {
    plan.useBatch = true;
    run.play(From::startTime);
    EXPECT_THAT(told, ElementsAre("took nothing", "running"));
    tick();
    EXPECT_EQ(run.progress().phase, Phase::stopped);
}

TEST_F(Run, TheSelectionIsAskedForAnewAtEachItem) {
    addThreeItems(1, 1, 1);
    list.setSelection({0, 2});
    plan.batchMode = batchModeSelected;
    run.play(From::startTime);
    EXPECT_EQ(run.progress().itemsToStripe, 2u);
    tick(3);
    endPause();
    EXPECT_EQ(run.progress().item, list.batchList()[2]);
    plan.batchMode = batchModeAll; // the cursor, 1, is now an index into all items
    tick(3);
    endPause();
    EXPECT_EQ(run.progress().itemsToStripe, 3u);
    EXPECT_EQ(run.progress().item, list.batchList()[2]);
}

} // namespace
