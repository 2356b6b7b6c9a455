#include "engine/BatchListTest.h"
#include "engine/menu_validation.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;

namespace {

using BatchEditing = BatchListTest;

TEST_F(BatchEditing, RowsThatStayInTheListStaySelected) {
    fill();
    select({1, 2});
    chooseMode(batchModeSelected);
    const auto expectSelected = [&](const char* after) {
        EXPECT_THAT(selectedTitles(), ElementsAre("two", "three")) << after;
        EXPECT_EQ(controller.batchMode(), batchModeSelected) << after;
        EXPECT_FALSE(rig.ui.removeFromBatchButton.isHidden()) << after;
    };
    addItem(0, "zero");
    expectSelected("an addition");
    undo.undo();
    expectSelected("its undo");
    undo.redo();
    expectSelected("its redo");
}

TEST_F(BatchEditing, WhatAnUndoBringsBackIsUnselectedAmongRowsThatStaySelected) {
    fill();
    select({1});
    controller.handleDeleteRows();
    select({0, 1});
    choose(batch_menu::selected);
    undo.undo();
    EXPECT_THAT(titles(), ElementsAre("one", "two", "three"));
    EXPECT_THAT(selectedTitles(), ElementsAre("one", "three"));
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
    undo.redo();
    EXPECT_THAT(selectedTitles(), ElementsAre("one", "three"));
}

TEST_F(BatchEditing, ATwinThatComesInIsARowOfItsOwn) {
    addItem(1, "one");
    undo.undo();
    undo.redo();
    select({0});
    undo.undo();
    ASSERT_THAT(titles(), ElementsAre("one", "one"));
    EXPECT_EQ(rig.ui.batchTable.selectedRowIndexes(), RowIndexes{0});
    controller.handleDeleteRows();
    EXPECT_THAT(titles(), ElementsAre("one"));
    EXPECT_EQ(rig.ui.batchTable.selectedRowIndexes(), RowIndexes());
}

TEST_F(BatchEditing, TheKeyboardGoesOnFromThePlaceOfADeletion) {
    fill();
    const auto keyboardRow = [this] { return rig.ui.batchTable.keyboardRow(); };
    rig.ui.batchTable.moveKeyboardTo({2});
    select({1, 2});
    controller.handleDeleteRows();
    EXPECT_EQ(keyboardRow(), RowIndexes{1});
    undo.undo();
    EXPECT_EQ(keyboardRow(), RowIndexes{1});
    EXPECT_EQ(rig.ui.batchTable.itemInView(), list().batchList()[1]);
    rig.ui.batchTable.moveKeyboardTo({0});
    undo.redo();
    EXPECT_EQ(keyboardRow(), RowIndexes{1});
    addItem(0, "before it");
    undo.undo();
    undo.undo();
    EXPECT_EQ(keyboardRow(), RowIndexes{1});
}

TEST_F(BatchEditing, TheKeyboardStaysWithItsRow) {
    fill();
    rig.ui.batchTable.moveKeyboardTo({1});
    addItem(0, "before");
    EXPECT_EQ(rig.ui.batchTable.keyboardRow(), RowIndexes{2});
    undo.undo();
    EXPECT_EQ(rig.ui.batchTable.keyboardRow(), RowIndexes{1});
}

} // namespace
