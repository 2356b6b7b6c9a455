#include "engine/BatchRunTest.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using BatchRun = BatchRunTest;

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

} // namespace
