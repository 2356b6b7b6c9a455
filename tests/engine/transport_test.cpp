#include "support/ControllerRig.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

struct Transport : testing::Test {
    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
};

TEST_F(Transport, PlayFromStoppedSendsStopSetupStart) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25, sync::dtl);
    rig.press(transport::playing);
    EXPECT_THAT(rig.midi.takeBytes(),
                ElementsAre(stopFrame, frame("01 00 00 00", "05"), frame("01 00 00 00", "7F")));
    EXPECT_EQ(controller.transportState(), transport::playing);
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:00");
}

TEST_F(Transport, TheSetupWaitsUntilTheStopHasGoneOut) {
    rig.midi.takeSent();
    rig.press(transport::playing);
    EXPECT_EQ(rig.midi.sentWhenAwaited(), 1u);
    EXPECT_THAT(rig.midi.takeBytes(), SizeIs(3));
}

TEST_F(Transport, TheClockCountsOneFrameATick) {
    rig.setStripe("00:59:59:29", nullptr, rate::fps30);
    rig.press(transport::playing);
    rig.tick();
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:00");
    EXPECT_EQ(controller.currentTime(), tc("01:00:00:00"));
}

struct RateInterval {
    std::uint64_t rate;
    double seconds;
};

class ClockInterval : public Transport, public testing::WithParamInterface<RateInterval> {};

TEST_P(ClockInterval, IsTheRates) {
    rig.setStripe("01:00:00:00", nullptr, GetParam().rate);
    rig.press(transport::playing);
    EXPECT_THAT(rig.runLoop.liveIntervals(), ElementsAre(RunLoop::Seconds(GetParam().seconds)));
}

INSTANTIATE_TEST_SUITE_P(Rates, ClockInterval,
                         testing::Values(RateInterval{rate::fps24, 1.0 / 24},
                                         RateInterval{rate::fps25, 1.0 / 25},
                                         RateInterval{rate::fps30, 1.0 / 30},
                                         RateInterval{rate::fps30Drop, 0.033366700033366704}));

TEST_F(Transport, AtDropFrameOneTickSkipsTheDroppedNumbers) {
    rig.setStripe("00:00:59:29", nullptr, rate::fps30Drop);
    rig.press(transport::playing);
    rig.tick();
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "00:01:00:02");
}

TEST_F(Transport, WithoutAStopTimeItRunsThroughMidnight) {
    rig.setStripe("23:59:59:23", nullptr, rate::fps24);
    rig.press(transport::playing);
    rig.tick();
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "00:00:00:00");
    rig.tick(24 * 60);
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "00:01:00:00");
    EXPECT_EQ(controller.transportState(), transport::playing);
}

TEST_F(Transport, TheStopTimeEndsTheRunOnTheTickThatReachesIt) {
    rig.setStripe("00:59:59:20", "01:00:00:00", rate::fps25);
    rig.press(transport::playing);
    rig.midi.takeBytes();
    rig.tick(4);
    EXPECT_EQ(controller.transportState(), transport::playing);
    EXPECT_THAT(rig.midi.takeBytes(), IsEmpty());
    rig.tick();
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:00");
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame, stopFrame));
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::stopped);
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
}

TEST_F(Transport, TheEndOfASingleRunPutsBackTheSettingsLastSavedWhichAtFirstAreZeros) {
    rig.setStripe("00:59:59:20", "01:00:00:00", rate::fps25, sync::dtl);
    rig.press(transport::playing);
    rig.tick(5);
    EXPECT_EQ(controller.startTime(), 0u);
    EXPECT_EQ(controller.stopTime(), 0u);
    EXPECT_EQ(controller.frameRate(), rate::fps24);
    EXPECT_EQ(controller.syncType(), sync::mtc);
    EXPECT_EQ(shown(rig.ui.startTimeButton), "00:00:00:00");
    EXPECT_EQ(shown(rig.ui.endTimeButton), "00:00:00:00");
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps24);
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::mtc);
}

TEST_F(Transport, TheEndOfASingleRunPutsBackWhatWasSavedAtTheLastBatchStart) {
    controller.setStartTime(tc("05:00:00:00"), tc("06:00:00:00"), {});
    controller.handleFrameRateMenuItems(rate::fps30Drop);
    controller.handleSyncTypeMenuItems(sync::dtl);
    controller.saveCurrentSettings();
    rig.setStripe("01:00:00:00", "01:00:00:01", rate::fps24);
    rig.press(transport::playing);
    rig.tick();
    EXPECT_EQ(controller.startTime(), tc("05:00:00:00"));
    EXPECT_EQ(controller.stopTime(), tc("06:00:00:00"));
    EXPECT_EQ(controller.frameRate(), rate::fps30Drop);
    EXPECT_EQ(controller.syncType(), sync::dtl);
    EXPECT_EQ(shown(rig.ui.endTimeButton), "06:00:00:00");
}

TEST_F(Transport, ComingBackFromFskTheRatesCanBeChosenAgain) {
    rig.setStripe("01:00:00:00", "01:00:00:01", rate::fps24, sync::fsk);
    EXPECT_FALSE(rig.ui.frameRateMatrix.isEnabled());
    rig.press(transport::playing);
    rig.tick();
    EXPECT_EQ(controller.syncType(), sync::mtc);
    EXPECT_TRUE(rig.ui.frameRateMatrix.isEnabled());
}

TEST_F(Transport, AStopTimeBeforeTheStartEndsTheRunOnTheFirstTick) {
    controller.setStopTimeSet(true, tc("02:00:00:00"), {});
    controller.setStartTime(tc("03:00:00:00"), tc("02:00:00:00"), {});
    rig.press(transport::playing);
    rig.midi.takeBytes();
    rig.tick();
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame, stopFrame));
    EXPECT_EQ(controller.currentTime(), tc("02:00:00:00"));
}

TEST_F(Transport, StopKeepsTheTimeOnTheClockAndSendsOneStop) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25);
    rig.press(transport::playing);
    rig.tick(30);
    rig.midi.takeBytes();
    rig.press(transport::stopped);
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame));
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:01:05");
    EXPECT_EQ(controller.currentTime(), tc("01:00:01:05"));
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
    EXPECT_EQ(controller.startTime(), tc("01:00:00:00"));
}

TEST_F(Transport, PlayAfterStopBeginsAtTheStartTimeAgain) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25);
    rig.press(transport::playing);
    rig.tick(30);
    rig.press(transport::stopped);
    rig.midi.takeBytes();
    rig.press(transport::playing);
    EXPECT_THAT(rig.midi.takeBytes(),
                ElementsAre(stopFrame, frame("01 00 00 00", "01"), frame("01 00 00 00", "7F")));
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:00");
}

TEST_F(Transport, PlayAfterPauseCarriesThePausedTime) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25);
    rig.press(transport::playing);
    rig.tick(30);
    rig.midi.takeBytes();
    rig.press(transport::paused);
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame));
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
    rig.press(transport::playing);
    EXPECT_THAT(rig.midi.takeBytes(),
                ElementsAre(stopFrame, frame("01 00 01 05", "01"), frame("01 00 01 05", "7F")));
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:01:05");
}

TEST_F(Transport, PlayWhilePlayingGoesOnFromTheTimeShownWithOneClock) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25);
    rig.press(transport::playing);
    rig.tick(10);
    rig.press(transport::playing);
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:10");
    EXPECT_EQ(rig.runLoop.liveIntervals().size(), 1u);
}

TEST_F(Transport, StopAfterPauseMakesTheNextPlayBeginAtTheStartTime) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25);
    rig.press(transport::playing);
    rig.tick(10);
    rig.press(transport::paused);
    rig.press(transport::stopped);
    rig.press(transport::playing);
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:00");
}

TEST_F(Transport, OtherStatesAreOnlyNoted) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25);
    rig.press(transport::playing);
    rig.midi.takeBytes();
    controller.setTransportState(7);
    EXPECT_EQ(controller.transportState(), 7u);
    EXPECT_EQ(controller.prevTransportState(), transport::playing);
    EXPECT_THAT(rig.midi.takeBytes(), IsEmpty());
    EXPECT_EQ(rig.runLoop.liveIntervals().size(), 1u);
}

TEST_F(Transport, AChangeOfRateDuringPlayLeavesTheShownTimesAlone) {
    rig.setStripe("01:00:00:28", nullptr, rate::fps30);
    rig.press(transport::playing);
    controller.setFrameRate(rate::fps24);
    EXPECT_EQ(shown(rig.ui.startTimeButton), "01:00:00:28");
    rig.press(transport::stopped);
    controller.setFrameRate(rate::fps24);
    EXPECT_EQ(shown(rig.ui.startTimeButton), "01:00:01:04");
    EXPECT_EQ(controller.startTime(), tc("01:00:00:28"));
}

TEST_F(Transport, AMissingDestinationChangesNothingForTheClock) {
    rig.midi.unplug(rig.destination);
    rig.setStripe("01:00:00:00", "01:00:00:05", rate::fps25);
    rig.press(transport::playing);
    rig.tick(5);
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_THAT(rig.alerts.shown, IsEmpty());
}

} // namespace
