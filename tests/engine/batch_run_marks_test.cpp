#include "engine/BatchRunTest.h"

#include <gmock/gmock.h>

#include <vector>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;

namespace {

using BatchRun = BatchRunTest;

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

TEST_F(BatchRun, AStripeOutsideTheListMarksNothing) {
    addThreeItems(1, 1, 1);
    controller.setUseBatch(false);
    rig.press(transport::playing);
    rig.tick(3);
    for (const auto& item : controller.batchStripeData().batchList())
        EXPECT_EQ(rig.ui.batchTable.mark(item), StripeMark::none);
}

} // namespace
