#include "app/MainWindowTest.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

using Window = MainWindowTest;

TEST_F(Window, BatchControlsRestWhileTheListIsEmpty) {
    EXPECT_FALSE(outlet("batchCheck").isEnabled());
    EXPECT_FALSE(outlet("batchAll").isEnabled());
    EXPECT_TRUE(outlet("batchAll").isChecked());
    EXPECT_FALSE(outlet("addToBatchButton").isVisible());
    EXPECT_FALSE(outlet("removeFromBatchButton").isVisible());
}

TEST_F(Window, TheAddButtonComesWithTheStopTimeAndMovesNothing) {
    const auto& stopTime = outlet("endTimeButton");
    const auto before = stopTime.geometry();
    outlet("stopTimeCheck").click();
    QCoreApplication::processEvents();
    EXPECT_TRUE(outlet("addToBatchButton").isVisible());
    EXPECT_EQ(stopTime.geometry(), before);
}

TEST_F(Window, TheRemoveButtonAndTheDeleteKeyDeleteTheSelectedRows) {
    addItems(3);
    table.selectRow(0);
    EXPECT_TRUE(outlet("removeFromBatchButton").isVisible());
    outlet("removeFromBatchButton").click();
    EXPECT_EQ(table.model()->rowCount(), 2);
    EXPECT_FALSE(outlet("removeFromBatchButton").isVisible());
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(table.model()->rowCount(), 1);
    controller.undo();
    EXPECT_EQ(table.model()->rowCount(), 2);
    EXPECT_FALSE(table.hasSelectedRows());
}

TEST_F(Window, BatchControlsRestAgainWhenTheLastRowIsDeleted) {
    addItems(2);
    table.selectAll();
    outlet("batchSelected").click();
    ASSERT_TRUE(controller.useBatch());
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_FALSE(outlet("batchAll").isEnabled());
    EXPECT_FALSE(outlet("batchSelected").isEnabled());
    EXPECT_FALSE(outlet("batchCheck").isEnabled());
    outlet("batchSelected").click();
    EXPECT_FALSE(controller.useBatch());
    controller.undo();
    EXPECT_TRUE(outlet("batchAll").isEnabled());
    EXPECT_FALSE(outlet("batchSelected").isEnabled());
}

TEST_F(Window, AChangeOfTheListLeavesTheOtherRowsSelected) {
    addItems(3);
    table.selectRow(2);
    outlet("batchSelected").click();
    controller.undoManager().endEvent();
    controller.addItemToBatchList(0, u"first"_s, {0, 1, 2, 0});
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{3});
    controller.undo();
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{2});
    EXPECT_TRUE(outlet("batchSelected").isChecked());
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
}

TEST_F(Window, SelectedCanBeChosenWhileRowsAre) {
    addItems(2);
    EXPECT_TRUE(outlet("batchAll").isEnabled());
    EXPECT_FALSE(outlet("batchSelected").isEnabled());
    table.selectRow(1);
    EXPECT_TRUE(outlet("batchSelected").isEnabled());
    outlet("batchSelected").click();
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
    EXPECT_TRUE(outlet("batchCheck").isChecked());
    table.clearSelection();
    EXPECT_TRUE(outlet("batchAll").isChecked());
    outlet("batchCheck").click();
    EXPECT_FALSE(controller.useBatch());
}

struct Name {
    const char* object;
    const char* accessible;
};

class BatchControlName : public Window, public testing::WithParamInterface<Name> {};

TEST_P(BatchControlName, IsTheCaptionForAssistiveTechnology) {
    EXPECT_EQ(outlet<QWidget>(GetParam().object).accessibleName(),
              QString::fromLatin1(GetParam().accessible));
}

INSTANTIATE_TEST_SUITE_P(Table, BatchControlName,
                         testing::Values(Name{"addToBatchButton", "Add to batch list"},
                                         Name{"removeFromBatchButton", "Remove selected items"},
                                         Name{"batchCheck", "Batch striping"},
                                         Name{"batchAll", "All"}, Name{"batchSelected", "Selected"},
                                         Name{"batchTable", "Batch stripe list"}));

} // namespace
