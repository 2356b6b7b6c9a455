#include "support/ControllerRig.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct BatchRun : testing::Test {
    BatchRun() {
        controller.setStartTime(tc("09:00:00:00"), tc("10:00:00:00"), {});
        controller.handleFrameRateMenuItems(rate::fps24);
        controller.handleSyncTypeMenuItems(sync::dtl);
    }

    /// Three items of three frames, an hour apart, on these reels.
    void addThreeItems(std::uint64_t reel1, std::uint64_t reel2, std::uint64_t reel3) {
        auto& list = controller.batchStripeData();
        list.addItemWithReel(reel1, QStringLiteral("one"),
                             {tc("01:00:00:00"), tc("01:00:00:03"), rate::fps25, sync::mtc});
        list.addItemWithReel(reel2, QStringLiteral("two"),
                             {tc("02:00:00:00"), tc("02:00:00:03"), rate::fps30, sync::dtl});
        list.addItemWithReel(reel3, QStringLiteral("three"),
                             {tc("03:00:00:00"), tc("03:00:00:03"), rate::fps30Drop, sync::mtc});
        controller.handleBatchControlEnabling();
        controller.setUseBatch(true);
    }

    void endPause() { rig.runLoop.advance(RunLoop::Seconds(controller.delayInSeconds())); }

    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
};

TEST_F(BatchRun, BeginsWithTheFirstItemsOwnSettings) {
    addThreeItems(1, 1, 2);
    rig.midi.takeBytes();
    rig.press(transport::playing);
    EXPECT_THAT(rig.midi.takeBytes(),
                ElementsAre(stopFrame, frame("01 00 00 00", "01"), frame("01 00 00 00", "7F")));
    EXPECT_EQ(rig.ui.currentStripeItemLabel.stringValue(), QStringLiteral("one"));
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps25);
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::mtc);
    EXPECT_EQ(shown(rig.ui.startTimeButton), "01:00:00:00");
    EXPECT_EQ(shown(rig.ui.endTimeButton), "01:00:00:03");
    EXPECT_EQ(controller.currentReel(), 1u);
    EXPECT_EQ(controller.itemsToStripe(), 3u);
    EXPECT_THAT(rig.alerts.shown, IsEmpty());
}

TEST_F(BatchRun, AnItemThatEndsSendsOneStopAndPauses) {
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    rig.midi.takeBytes();
    rig.tick(3);
    EXPECT_EQ(controller.transportState(), transport::pausedBetweenItems);
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame));
    EXPECT_EQ(rig.ui.currentStripeItemLabel.stringValue(), QString());
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:03");
}

TEST_F(BatchRun, TheNextItemStartsWithoutAnotherStop) {
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    rig.tick(3);
    rig.midi.takeBytes();
    endPause();
    EXPECT_THAT(rig.midi.takeBytes(),
                ElementsAre(frame("02 00 00 00", "06"), frame("02 00 00 00", "7F")));
    EXPECT_EQ(controller.transportState(), transport::pausedBetweenItems);
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::playing);
    EXPECT_EQ(rig.ui.currentStripeItemLabel.stringValue(), QStringLiteral("two"));
    EXPECT_EQ(controller.currentStripeItem(), 0u);
    rig.tick();
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "02:00:00:01");
}

TEST_F(BatchRun, ThePlayAndPauseCellsBlinkInThePauseBeginningWithPause) {
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    rig.tick(3);
    std::vector<std::uint64_t> cells;
    for (int i = 0; i < 9; ++i) {
        rig.runLoop.advance(RunLoop::Seconds(0.5));
        cells.push_back(rig.ui.transportMatrix.selectedTag());
    }
    EXPECT_THAT(cells, ElementsAre(2, 1, 2, 1, 2, 1, 2, 1, 2));
    rig.runLoop.advance(RunLoop::Seconds(0.5));
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::playing);
    EXPECT_EQ(controller.currentTime(), tc("02:00:00:00"));
}

TEST_F(BatchRun, EveryPauseBeginsItsBlinkingWithPause) {
    controller.setDelayInSeconds(0.7); // one blink: the other cell is next
    addThreeItems(1, 1, 1);
    rig.press(transport::playing);
    for (int item = 0; item < 2; ++item) {
        rig.tick(3);
        rig.runLoop.advance(RunLoop::Seconds(0.6));
        EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::paused) << item;
        rig.runLoop.advance(RunLoop::Seconds(0.1));
    }
}

TEST_F(BatchRun, AnotherReelIsAskedForOnce) {
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    rig.tick(3);
    endPause();
    EXPECT_THAT(rig.alerts.shown, IsEmpty());
    rig.tick(3);
    endPause();
    ASSERT_EQ(rig.alerts.shown.size(), 1u);
    EXPECT_EQ(rig.alerts.shown[0].message, QStringLiteral("Time to change reels"));
    EXPECT_EQ(rig.alerts.shown[0].information,
              QStringLiteral("Please load reel 2, then hit Continue"));
    EXPECT_THAT(rig.alerts.shown[0].buttons, ElementsAre(QStringLiteral("Continue")));
    EXPECT_EQ(controller.currentReel(), 2u);
}

TEST_F(BatchRun, WhileTheAlertIsUpNothingIsSentAndTicksAreLost) {
    addThreeItems(1, 2, 2);
    rig.press(transport::playing);
    rig.tick(3);
    rig.midi.takeBytes();
    rig.alerts.whileShown = [this] {
        EXPECT_TRUE(controller.waitingForReelChange());
        EXPECT_THAT(rig.midi.takeBytes(), IsEmpty());
        EXPECT_EQ(shown(rig.ui.currentTimeButton), "01:00:00:03");
    };
    endPause();
    EXPECT_EQ(rig.alerts.shown.size(), 1u);
    EXPECT_FALSE(controller.waitingForReelChange());
    EXPECT_EQ(rig.midi.takeBytes().size(), 2u);
}

TEST_F(BatchRun, AnAlertTakenDownUnansweredEndsTheRun) {
    addThreeItems(1, 2, 2);
    rig.press(transport::playing);
    rig.tick(3);
    rig.midi.takeSent();
    rig.alerts.answers = {alertUnanswered};
    endPause();
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame));
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::stopped);
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
}

TEST_F(BatchRun, AStopWhileTheAlertIsUpKeepsTheNextItemFromStarting) {
    addThreeItems(1, 2, 2);
    rig.press(transport::playing);
    rig.tick(3);
    rig.midi.takeSent();
    rig.alerts.whileShown = [this] { rig.press(transport::stopped); };
    endPause();
    for (const auto& bytes : rig.midi.takeBytes())
        EXPECT_EQ(bytes, stopFrame);
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
}

TEST_F(BatchRun, ReelsAreNotAskedForWhenThePreferenceIsOff) {
    controller.setPauseForReelChange(false);
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    for (int item = 0; item < 2; ++item) {
        rig.tick(3);
        endPause();
    }
    EXPECT_THAT(rig.alerts.shown, IsEmpty());
    EXPECT_EQ(controller.currentReel(), 1u);
}

TEST_F(BatchRun, ALargeReelNumberIsAskedForAsItStands) {
    addThreeItems(1, 1, 4000000000);
    rig.press(transport::playing);
    for (int item = 0; item < 2; ++item) {
        rig.tick(3);
        endPause();
    }
    ASSERT_EQ(rig.alerts.shown.size(), 1u);
    EXPECT_EQ(rig.alerts.shown[0].information,
              QStringLiteral("Please load reel 4000000000, then hit Continue"));
}

TEST_F(BatchRun, AfterTheLastItemTheClockEndsTheRunAndTheSettingsComeBack) {
    addThreeItems(1, 1, 1);
    rig.press(transport::playing);
    for (int item = 0; item < 2; ++item) {
        rig.tick(3);
        endPause();
    }
    rig.midi.takeBytes();
    rig.tick(3);
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame, stopFrame));
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::stopped);
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
    EXPECT_EQ(controller.startTime(), tc("09:00:00:00"));
    EXPECT_EQ(controller.stopTime(), tc("10:00:00:00"));
    EXPECT_EQ(controller.frameRate(), rate::fps24);
    EXPECT_EQ(controller.syncType(), sync::dtl);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps24);
    EXPECT_EQ(shown(rig.ui.startTimeButton), "09:00:00:00");
}

TEST_F(BatchRun, WithNoDelayTheNextItemStartsOnTheNextPassWithoutABlink) {
    controller.setDelayInSeconds(0);
    addThreeItems(1, 1, 1);
    rig.press(transport::playing);
    rig.tick(3);
    EXPECT_EQ(controller.currentTime(), tc("01:00:00:03"));
    rig.runLoop.advance(RunLoop::Seconds(0));
    EXPECT_EQ(controller.currentTime(), tc("02:00:00:00"));
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::playing);
}

TEST_F(BatchRun, StopInThePauseEndsTheBlinkAndTheNextItemNeverStarts) {
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    rig.tick(3);
    rig.runLoop.advance(RunLoop::Seconds(0.6));
    rig.press(transport::stopped);
    rig.midi.takeBytes();
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
    rig.runLoop.advance(RunLoop::Seconds(60));
    EXPECT_THAT(rig.midi.takeBytes(), IsEmpty());
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::stopped);
    EXPECT_EQ(controller.transportState(), transport::stopped);
}

TEST_F(BatchRun, PauseThenPlayStartsAgainAtTheFirstItem) {
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    rig.tick(3);
    endPause();
    rig.tick();
    rig.press(transport::paused);
    rig.midi.takeBytes();
    rig.press(transport::playing);
    EXPECT_THAT(rig.midi.takeBytes(),
                ElementsAre(stopFrame, frame("01 00 00 00", "01"), frame("01 00 00 00", "7F")));
}

TEST_F(BatchRun, ASelectedRunStripesTheSelectedRowsOnly) {
    addThreeItems(1, 1, 2);
    rig.ui.batchTable.selectRows({0, 2});
    controller.handleBatchControlEnabling();
    controller.setBatchMode(batchModeSelected);
    rig.press(transport::playing);
    EXPECT_EQ(controller.itemsToStripe(), 2u);
    rig.tick(3);
    rig.midi.takeBytes();
    endPause();
    EXPECT_THAT(rig.midi.takeBytes(),
                ElementsAre(frame("03 00 00 00", "03"), frame("03 00 00 00", "7F")));
    rig.tick(3);
    EXPECT_EQ(controller.transportState(), transport::stopped);
}

TEST_F(BatchRun, ASelectedRunStaysOneWhenTheListChanges) {
    addThreeItems(1, 1, 2);
    controller.addItemToBatchList(9, QStringLiteral("not chosen"), {0, 1, rate::fps30, sync::mtc});
    rig.ui.batchTable.selectRows({0, 2});
    controller.tableViewSelectionDidChange();
    controller.handleBatchListMenuItems(batchModeSelected);
    rig.press(transport::playing);
    controller.addItemToBatchList(1, QStringLiteral("late"), {0, 1, rate::fps30, sync::mtc});
    rig.tick(3);
    controller.undo();
    endPause();
    EXPECT_EQ(controller.currentTime(), tc("03:00:00:00"));
    rig.tick(3);
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
}

TEST_F(BatchRun, ItemsDeletedInThePauseAreNotFoundAndTheRunEndsWithoutRestoring) {
    addThreeItems(1, 1, 2);
    rig.press(transport::playing);
    rig.tick(3);
    controller.batchStripeData().deleteIndexedItems({1, 2});
    rig.midi.takeBytes();
    endPause();
    EXPECT_THAT(rig.midi.takeBytes(), ElementsAre(stopFrame));
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), transport::playing);
    EXPECT_EQ(rig.ui.currentStripeItemLabel.stringValue(), QString());
    EXPECT_EQ(controller.itemsToStripe(), 1u);
    EXPECT_EQ(controller.frameRate(), rate::fps25);
    EXPECT_THAT(rig.runLoop.liveIntervals(), IsEmpty());
}

TEST_F(BatchRun, AnEmptyListEndsAtItsFirstTick) {
    controller.setUseBatch(true);
    rig.press(transport::playing);
    EXPECT_EQ(controller.transportState(), transport::playing);
    EXPECT_EQ(shown(rig.ui.currentTimeButton), "00:00:00:00");
    rig.tick();
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(controller.startTime(), tc("09:00:00:00"));
}

TEST_F(BatchRun, AnEmptySelectionEndsAtItsFirstTick) {
    addThreeItems(1, 1, 2);
    controller.setBatchMode(batchModeSelected);
    rig.press(transport::playing);
    rig.tick();
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(controller.itemsToStripe(), 0u);
}

TEST_F(BatchRun, MarksTheItemUnderWayAndTheFinishedOnesAndKeepsTheSelection) {
    addThreeItems(1, 1, 1);
    const auto items = controller.batchStripeData().batchList();
    const auto marks = [&] {
        std::vector<StripeMark> shown;
        for (const auto& item : items)
            shown.push_back(rig.ui.batchTable.mark(item));
        return shown;
    };
    using enum StripeMark;
    rig.ui.batchTable.selectRows({2});
    rig.press(transport::playing);
    EXPECT_THAT(marks(), ElementsAre(underWay, none, none));
    rig.tick(3);
    EXPECT_THAT(marks(), ElementsAre(finished, none, none));
    endPause();
    EXPECT_THAT(marks(), ElementsAre(finished, underWay, none));
    rig.press(transport::paused);
    EXPECT_THAT(marks(), ElementsAre(finished, stoppedHere, none));

    rig.press(transport::playing);
    EXPECT_THAT(marks(), ElementsAre(underWay, none, none)) << "a run begins afresh";
    for (int item = 0; item < 3; ++item) {
        rig.tick(3);
        endPause();
    }
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_THAT(marks(), ElementsAre(finished, finished, finished));
    EXPECT_EQ(rig.ui.batchTable.selectedRowIndexes(), RowIndexes{2});
}

TEST_F(BatchRun, MarksTheItemThatWouldHaveComeNextWhereItStopsInAPause) {
    addThreeItems(1, 1, 2);
    const auto items = controller.batchStripeData().batchList();
    rig.press(transport::playing);
    rig.tick(3);
    rig.press(transport::stopped);
    EXPECT_EQ(rig.ui.batchTable.mark(items[0]), StripeMark::finished);
    EXPECT_EQ(rig.ui.batchTable.mark(items[1]), StripeMark::stoppedHere);
    EXPECT_EQ(rig.ui.batchTable.mark(items[2]), StripeMark::none);
}

TEST_F(BatchRun, MarksTheItemWhoseReelWasNotLoaded) {
    addThreeItems(1, 2, 2);
    const auto items = controller.batchStripeData().batchList();
    rig.alerts.answers = {alertUnanswered};
    rig.press(transport::playing);
    rig.tick(3);
    endPause();
    ASSERT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(rig.ui.batchTable.mark(items[1]), StripeMark::stoppedHere);
}

TEST_F(BatchRun, AnItemIsFinishedAlsoWhereItsReelHadToBeLoaded) {
    addThreeItems(1, 1, 2);
    const auto items = controller.batchStripeData().batchList();
    rig.press(transport::playing);
    for (int item = 0; item < 3; ++item) {
        rig.tick(3);
        endPause();
    }
    ASSERT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(rig.ui.batchTable.mark(items[2]), StripeMark::finished);
}

TEST_F(BatchRun, ARunThatPlayBeginsAnewDidNotStopAnywhere) {
    addThreeItems(1, 1, 1);
    const auto items = controller.batchStripeData().batchList();
    rig.press(transport::playing);
    rig.tick(3);
    endPause();
    rig.press(transport::playing);
    EXPECT_EQ(rig.ui.batchTable.mark(items[0]), StripeMark::underWay);
    EXPECT_EQ(rig.ui.batchTable.mark(items[1]), StripeMark::none);
}

TEST_F(BatchRun, ARunThatEndsByItselfDidNotStopAnywhere) {
    addThreeItems(1, 1, 1);
    const auto items = controller.batchStripeData().batchList();
    rig.press(transport::playing);
    rig.tick(3);
    controller.batchStripeData().deleteIndexedItems({1, 2});
    endPause();
    ASSERT_EQ(controller.transportState(), transport::stopped);
    for (const auto& item : {items[1], items[2]})
        EXPECT_EQ(rig.ui.batchTable.mark(item), StripeMark::none);
}

TEST_F(BatchRun, ARunBeginsWithoutTheMarksOfTheOneBefore) {
    addThreeItems(1, 1, 1);
    rig.press(transport::playing);
    for (int item = 0; item < 3; ++item) {
        rig.tick(3);
        endPause();
    }
    ASSERT_EQ(controller.transportState(), transport::stopped);
    const auto& items = controller.batchStripeData().batchList();
    ASSERT_EQ(rig.ui.batchTable.mark(items[2]), StripeMark::finished);
    rig.press(transport::playing);
    EXPECT_EQ(rig.ui.batchTable.mark(items[0]), StripeMark::underWay);
    EXPECT_EQ(rig.ui.batchTable.mark(items[1]), StripeMark::none);
    EXPECT_EQ(rig.ui.batchTable.mark(items[2]), StripeMark::none);
}

TEST_F(BatchRun, EveryChangeOfTheSettingsIsTold) {
    struct Codes {
        std::uint64_t rate, type;
        bool operator==(const Codes&) const = default;
    };
    const auto now = [&] { return Codes{controller.frameRate(), controller.syncType()}; };
    auto told = now();
    QObject::connect(&controller, &Vexa_RemoteAppDelegate::stateChanged, [&] { told = now(); });
    addThreeItems(1, 1, 1);
    rig.press(transport::playing);
    EXPECT_EQ(told, (Codes{rate::fps25, sync::mtc}));
    rig.tick(3);
    endPause();
    EXPECT_EQ(told, (Codes{rate::fps30, sync::dtl})) << "the next item's";
    rig.tick(3);
    endPause();
    rig.tick(3);
    EXPECT_EQ(told, (Codes{rate::fps24, sync::dtl})) << "the ones that come back";
}

TEST_F(BatchRun, AStripeOutsideTheListMarksNothing) {
    addThreeItems(1, 1, 1);
    controller.setUseBatch(false);
    rig.press(transport::playing);
    rig.tick(3);
    for (const auto& item : controller.batchStripeData().batchList())
        EXPECT_EQ(rig.ui.batchTable.mark(item), StripeMark::none);
}

} // namespace
