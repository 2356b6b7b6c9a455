#include "engine/BatchListTest.h"

#include <gmock/gmock.h>

#include <memory>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

BatchItemRef item(std::uint64_t reel, const QString& title) {
    return std::make_shared<BatchItem>(
        BatchItem{reel, title, tc("01:00:00:00"), tc("01:10:00:00"), rate::fps25, sync::dtl, 90});
}

struct RowEdits : BatchListTest {
    RowEdits() {
        list().addItems({item(1, u"one"_s), item(2, u"two"_s), item(3, u"three"_s)});
        controller.handleBatchControlEnabling();
    }

    void undoIt() {
        undo.endEvent();
        controller.undo();
    }
};

TEST_F(RowEdits, AreOneUndoUnderTheirName) {
    controller.changeItems({}, {item(2, u"new"_s), item(0, u"first"_s)}, u"Paste"_s);
    EXPECT_THAT(titles(), ElementsAre("first", "one", "new", "two", "three"));
    EXPECT_EQ(undo.undoMenuItemTitle(), u"Undo Paste"_s);
    undoIt();
    EXPECT_THAT(titles(), ElementsAre("one", "two", "three"));
    EXPECT_FALSE(undo.canUndo());
    EXPECT_EQ(undo.redoMenuItemTitle(), u"Redo Paste"_s);
    controller.redo();
    EXPECT_THAT(titles(), ElementsAre("first", "one", "new", "two", "three"));
    undoIt();
    EXPECT_THAT(titles(), ElementsAre("one", "two", "three"));
}

TEST_F(RowEdits, SelectWhatTheyAddAndBringItIntoView) {
    select({0});
    controller.changeItems({}, {item(2, u"new"_s), item(4, u"last"_s)}, u"Paste"_s);
    EXPECT_THAT(rig.ui.batchTable.selectedRowIndexes(), ElementsAre(1, 4));
    EXPECT_EQ(rig.ui.batchTable.itemInView()->title, u"new"_s);
    EXPECT_FALSE(rig.ui.removeFromBatchButton.isHidden());
}

TEST_F(RowEdits, LeaveTheKeyboardWhereRowsHaveGone) {
    select({1});
    controller.changeItems(controller.selectedItems(), {}, u"Cut"_s);
    EXPECT_THAT(titles(), ElementsAre("one", "three"));
    EXPECT_THAT(rig.ui.batchTable.keyboardRow(), ElementsAre(1));
    EXPECT_TRUE(rig.ui.removeFromBatchButton.isHidden());
}

TEST_F(RowEdits, AreUnsavedChangesWhereAnAdditionIsMadeOrTakenBack) {
    countAsSaved();
    controller.changeItems({}, {item(2, u"new"_s)}, u"Paste"_s);
    EXPECT_TRUE(controller.dirty());
    countAsSaved();
    undoIt();
    EXPECT_TRUE(controller.dirty());
    countAsSaved();
    controller.redo();
    EXPECT_FALSE(controller.dirty());
}

TEST_F(RowEdits, AreNoUnsavedChangesWhereRowsAreOnlyDeleted) {
    countAsSaved();
    select({1});
    controller.changeItems(controller.selectedItems(), {}, u"Cut"_s);
    EXPECT_FALSE(controller.dirty());
    undoIt();
    EXPECT_FALSE(controller.dirty());
    EXPECT_THAT(titles(), ElementsAre("one", "two", "three"));
}

TEST_F(RowEdits, PassOverItemsOfAnotherList) {
    controller.changeItems({}, {item(2, u"new"_s)}, u"Paste"_s);
    controller.newDocument();
    undoIt();
    EXPECT_THAT(titles(), IsEmpty());
}

TEST_F(RowEdits, DuplicateRowsUnderNewIds) {
    select({0, 2});
    list().setNextItemID(7);
    controller.duplicateRows();
    EXPECT_THAT(titles(), ElementsAre("one", "one", "two", "three", "three"));
    EXPECT_EQ(list().nextItemID(), 9u);
    EXPECT_EQ(undo.undoActionName(), u"Duplicate"_s);
    EXPECT_THAT(rig.ui.batchTable.selectedRowIndexes().size(), 2u);
}

TEST_F(RowEdits, TakeTheSettingsFromARow) {
    rig.setStripe("05:00:00:00", nullptr, rate::fps30);
    undo.endEvent();
    select({1});
    controller.takeSettingsFromRow();
    EXPECT_EQ(shown(rig.ui.startTimeButton), "01:00:00:00");
    EXPECT_EQ(shown(rig.ui.endTimeButton), "01:10:00:00");
    EXPECT_EQ(controller.startTime(), tc("01:00:00:00"));
    EXPECT_EQ(controller.stopTime(), tc("01:10:00:00"));
    EXPECT_TRUE(controller.stopTimeSet());
    EXPECT_FALSE(rig.ui.addToBatchButton.isHidden());
    EXPECT_EQ(controller.frameRate(), rate::fps25);
    EXPECT_EQ(controller.syncType(), sync::dtl);
    EXPECT_EQ(undo.undoActionName(), u"Take Settings from Row"_s);
    undoIt();
    EXPECT_EQ(controller.startTime(), tc("05:00:00:00"));
    EXPECT_EQ(shown(rig.ui.startTimeButton), "05:00:00:00");
    EXPECT_EQ(controller.stopTime(), 0u);
    EXPECT_FALSE(controller.stopTimeSet());
    EXPECT_EQ(controller.frameRate(), rate::fps30);
    EXPECT_EQ(controller.syncType(), sync::mtc);
    controller.redo();
    EXPECT_EQ(controller.startTime(), tc("01:00:00:00"));
    EXPECT_EQ(controller.stopTime(), tc("01:10:00:00"));
    EXPECT_TRUE(controller.stopTimeSet());
    EXPECT_EQ(controller.frameRate(), rate::fps25);
}

TEST_F(RowEdits, ReplaceARowByTheSettings) {
    rig.setStripe("05:00:00:00", "05:30:00:00", rate::fps24, sync::fsk);
    undo.endEvent();
    select({1});
    list().setNextItemID(7);
    controller.replaceRowBySettings();
    EXPECT_EQ(*list().batchList()[1], (BatchItem{2, u"two"_s, tc("05:00:00:00"), tc("05:30:00:00"),
                                                 rate::fps24, sync::fsk, 7}));
    EXPECT_EQ(undo.undoActionName(), u"Replace Row by Settings"_s);
    EXPECT_THAT(rig.ui.batchTable.selectedRowIndexes(), ElementsAre(1));
    undoIt();
    EXPECT_EQ(list().batchList()[1]->start, tc("01:00:00:00"));
    EXPECT_THAT(titles(), ElementsAre("one", "two", "three"));
}

TEST_F(RowEdits, AddWhatComesNext) {
    rig.setStripe("00:00:00:00", "01:30:00:00", rate::fps24);
    rig.ui.addToPanel.answer = [this] {
        EXPECT_EQ(rig.ui.addToPanel.reel(), 3u);
        return panelConfirmed;
    };
    controller.addNext();
    ASSERT_EQ(list().numItems(), 4u);
    EXPECT_EQ(list().batchList()[3]->start, tc("01:10:00:00"));
    EXPECT_EQ(list().batchList()[3]->stop, tc("01:30:00:00"));
    EXPECT_EQ(list().batchList()[3]->reel, 3u);
    controller.addNext();
    controller.addNext();
    EXPECT_EQ(list().batchList()[5]->start, tc("01:30:05:00"));
    EXPECT_EQ(list().batchList()[5]->stop, tc("01:30:10:00"));
}

TEST_F(RowEdits, NeedARowAndAStopTime) {
    controller.takeSettingsFromRow();
    controller.duplicateRows();
    select({1});
    controller.replaceRowBySettings();
    controller.addNext();
    EXPECT_FALSE(undo.canUndo());
}

} // namespace
