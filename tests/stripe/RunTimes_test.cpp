#include "StripeRig.h"
#include "stripe/RunTimes.h"
#include "support/allocations.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace std::chrono_literals;
using From = StripeRun::From;

namespace {

/// A run whose time passes, with records of the time left along the way.
struct Times : testing::Test, StripeRig {
    struct Said {
        double at;
        std::optional<RunLoop::Seconds> left;
    };

    Times() {
        plan.delayInSeconds = 7.5;
        plan.pauseForReelChange = false;
        QObject::connect(&run, &StripeRun::ticked, &run, [this] { say(); });
        QObject::connect(&run, &StripeRun::phaseChanged, &run, [this] { say(); });
        QObject::connect(&run, &StripeRun::reelNeeded, &run, [this] { run.reelLoaded(); });
        QObject::connect(&run, &StripeRun::ended, &run, [this] { end = runLoop.now().count(); });
    }

    void say() {
        if (run.progress().phase != Phase::stopped)
            said.push_back({runLoop.now().count(), times.leftOfRun().time});
    }
    void add(const char* start, const char* stop, std::uint64_t rate, std::uint64_t reel = 1) {
        list.addItemWithReel(reel, {}, {packed(start), packed(stop), rate, sync::mtc});
        plan.useBatch = true;
    }
    /// Items of all rates, one of them through minutes that drop numbers, and three around
    /// midnight.
    void addItemsOfAllKinds() {
        add("00:59:50:00", "01:00:10:23", rate::fps24);
        add("00:59:58:00", "01:00:10:00", rate::fps25);
        add("01:00:00:00", "01:00:07:15", rate::fps30);
        add("01:08:58:00", "01:10:01:00", rate::fps30Drop);
        add("23:59:50:00", "23:59:59:24", rate::fps25);
        add("23:59:55:00", "00:00:05:00", rate::fps25);
        add("23:59:59:24", "00:00:05:00", rate::fps25);
    }
    std::uint64_t position() const { return run.items().row(); }

    /// Runs to the end, and checks the times recorded since the last call.
    void expectTrueToTheEnd() {
        runLoop.advance(48h);
        ASSERT_EQ(run.progress().phase, Phase::stopped);
        ASSERT_FALSE(said.empty());
        for (const auto& [at, left] : said) {
            ASSERT_TRUE(left.has_value()) << at;
            ASSERT_NEAR(at + left->count(), end, 1e-6) << "at " << at;
        }
    }

    RunTimes times{run};
    std::vector<Said> said;
    double end = 0;
};

TEST_F(Times, OfAStripeAreItsFrames) {
    plan.settings = {packed("01:00:00:00"), packed("01:10:00:00"), rate::fps30Drop, sync::mtc};
    plan.stopTimeSet = true;
    run.play(From::startTime);
    EXPECT_EQ(times.leftOfItem(), 600s);
    tick(2997);
    EXPECT_EQ(times.leftOfItem(), 500s);
    EXPECT_EQ(times.leftOfRun().time, 500s);
    EXPECT_EQ(times.leftOfRun().reelChanges, 0u);
    run.pause();
    EXPECT_EQ(times.leftOfItem(), 500s) << "Play goes on from there";
    run.stop();
    EXPECT_EQ(times.leftOfItem(), std::nullopt);
    EXPECT_EQ(times.leftOfRun().time, std::nullopt);
}

TEST_F(Times, OfAStripeWithoutAStopTimeAreNotKnown) {
    plan.settings = {packed("01:00:00:00"), packed("01:10:00:00"), rate::fps25, sync::mtc};
    run.play(From::startTime);
    EXPECT_EQ(times.leftOfItem(), std::nullopt);
    EXPECT_EQ(times.leftOfRun().time, std::nullopt);
    plan.stopTimeSet = true;
    EXPECT_EQ(times.leftOfItem(), 600s);
}

TEST_F(Times, AreTrueAtEveryTickOfAStripeAtEachRate) {
    for (const auto& rate : frameRates) {
        said.clear();
        plan.settings = {packed("01:08:30:12"), packed("01:11:00:02"), rate.code, sync::mtc};
        plan.stopTimeSet = true;
        run.play(From::startTime);
        expectTrueToTheEnd();
    }
}

TEST_F(Times, AreTrueWhereTheRateIsChosenAnewInMidRun) {
    plan.settings = {packed("01:00:00:29"), packed("01:00:20:00"), rate::fps30, sync::mtc};
    plan.stopTimeSet = true;
    run.play(From::startTime);
    for (const auto rate : {rate::fps24, rate::fps30Drop, rate::fps25}) {
        plan.settings.frameRate = rate;
        runLoop.advance(1s);
    }
    said.clear();
    expectTrueToTheEnd();
}

TEST_F(Times, AreTrueAtEveryTickOfABatchRunOfAllKinds) {
    addItemsOfAllKinds();
    run.play(From::startTime);
    EXPECT_EQ(times.leftOfItem(), RunLoop::Seconds(20 + 23 / 24.0));
    expectTrueToTheEnd();
}

TEST_F(Times, AreTrueWithoutAPauseAndOfASelection) {
    addItemsOfAllKinds();
    list.setSelection({0, 2, 3, 6});
    plan.batchMode = batchModeSelected;
    plan.delayInSeconds = -3;
    run.play(From::startTime);
    expectTrueToTheEnd();
}

TEST_F(Times, CountThePauseDown) {
    addItemsOfAllKinds();
    run.play(From::startTime);
    tick(20 * 24 + 23);
    ASSERT_EQ(run.progress().phase, Phase::betweenItems);
    EXPECT_EQ(times.leftOfItem(), std::nullopt);
    EXPECT_EQ(run.pauseLeft(), 7.5s);
    const auto before = times.leftOfRun().time.value();
    runLoop.advance(3s);
    EXPECT_EQ(run.pauseLeft(), 4.5s);
    EXPECT_NEAR((before - times.leftOfRun().time.value()).count(), 3, 1e-9);
}

TEST_F(Times, FollowWhatIsEditedInThePause) {
    addItemsOfAllKinds();
    run.play(From::startTime);
    tick(20 * 24 + 23);
    ASSERT_EQ(run.progress().phase, Phase::betweenItems);
    list.deleteIndexedItems({2, 4});
    add("02:00:00:00", "02:00:03:00", rate::fps30);
    said.clear();
    say();
    expectTrueToTheEnd();
}

TEST_F(Times, EndWithThePauseWhereNothingFollowsAnyMore) {
    addItemsOfAllKinds();
    run.play(From::startTime);
    tick(20 * 24 + 23);
    list.clearBatchList();
    EXPECT_EQ(times.leftOfRun().time, 7.5s);
    EXPECT_EQ(times.leftOfRun().reelChanges, 0u);
}

TEST_F(Times, FollowTheModeAndTheDelay) {
    addItemsOfAllKinds();
    list.setSelection({0, 3});
    run.play(From::startTime);
    plan.batchMode = batchModeSelected;
    plan.delayInSeconds = 2;
    runLoop.advance(1s);
    said.clear();
    expectTrueToTheEnd();
}

TEST_F(Times, FollowBatchStripingThatIsTurnedOff) {
    addItemsOfAllKinds();
    run.play(From::startTime);
    plan.useBatch = false;
    EXPECT_EQ(times.leftOfRun().time, std::nullopt);
    plan.stopTimeSet = true;
    runLoop.advance(1s);
    said.clear();
    expectTrueToTheEnd();

    plan.useBatch = true;
    run.play(From::startTime);
    tick(20 * 24 + 23);
    ASSERT_EQ(run.progress().phase, Phase::betweenItems);
    plan.useBatch = false;
    said.clear();
    say();
    expectTrueToTheEnd();
    EXPECT_EQ(position(), 1u);
}

TEST_F(Times, AreTrueWherePlayBreaksIntoThePause) {
    addItemsOfAllKinds();
    run.play(From::startTime);
    tick(20 * 24 + 23);
    run.play(From::clock);
    said.clear();
    say();
    expectTrueToTheEnd();
}

TEST_F(Times, OfAPausedBatchRunAreNotKnownAsPlayBeginsItAnew) {
    addItemsOfAllKinds();
    run.play(From::startTime);
    run.pause();
    EXPECT_EQ(times.leftOfItem(), std::nullopt);
    EXPECT_EQ(times.leftOfRun().time, std::nullopt);
}

TEST_F(Times, OfAnEmptyListAreItsOneFrame) {
    plan.useBatch = true;
    run.play(From::startTime);
    expectTrueToTheEnd();
}

TEST_F(Times, ChangesOfReelAreCountedAndTakeNoTime) {
    plan.pauseForReelChange = true;
    for (const std::uint64_t reel : {1, 1, 2, 3, 3})
        add("01:00:00:00", "01:00:01:00", rate::fps25, reel);
    run.play(From::startTime);
    EXPECT_EQ(times.leftOfRun().reelChanges, 2u);
    EXPECT_EQ(times.leftOfRun().time, 5s + 4 * 7.5s);
    plan.pauseForReelChange = false;
    EXPECT_EQ(times.leftOfRun().reelChanges, 0u) << "nobody will be asked";
    plan.pauseForReelChange = true;
    std::size_t atReel2 = 9;
    QObject::connect(&run, &StripeRun::itemTaken, &run, [&] {
        if (position() == 2)
            atReel2 = times.leftOfRun().reelChanges;
    });
    expectTrueToTheEnd();
    EXPECT_EQ(atReel2, 1u);
}

TEST_F(Times, WhileAReelIsAwaitedAreThoseOfItsItemAndWhatFollows) {
    run.disconnect(&run);
    plan.pauseForReelChange = true;
    for (const std::uint64_t reel : {1, 2, 3})
        add("01:00:00:00", "01:00:01:00", rate::fps25, reel);
    run.play(From::startTime);
    tick(25);
    endPause();
    ASSERT_EQ(run.progress().phase, Phase::awaitingReel);
    EXPECT_EQ(times.leftOfItem(), 1s);
    EXPECT_EQ(times.leftOfRun().time, 2s + 7.5s);
    EXPECT_EQ(times.leftOfRun().reelChanges, 1u);
}

TEST_F(Times, AskedAtEachFrameAddALongListUpOnce) {
    constexpr int rows = 100'000;
    BatchItems items;
    for (int row = 0; row < rows; ++row)
        items.push_back(std::make_shared<BatchItem>(
            BatchItem{1, {}, packed("01:00:00:00"), packed("01:00:01:00"), rate::fps25}));
    list.setBatchList(std::move(items));
    plan.useBatch = true;
    run.disconnect(&run);
    run.play(From::startTime);
    const auto all = RunLoop::Seconds(rows + (rows - 1) * 7.5);
    EXPECT_EQ(times.leftOfRun().time, all);
    for (int frame = 1; frame < 25; ++frame) {
        tick();
        const auto before = allocations();
        const auto left = times.leftOfRun().time.value();
        EXPECT_EQ(allocations(), before) << "sums take memory";
        EXPECT_NEAR((all - left).count(), frame * 0.04, 1e-6);
    }
}

} // namespace
