#include "engine/BatchRunTest.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using BatchRun = BatchRunTest;

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

} // namespace
