#include "engine/BatchRunTest.h"

#include <gmock/gmock.h>

#include <vector>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using BatchRun = BatchRunTest;

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

} // namespace
