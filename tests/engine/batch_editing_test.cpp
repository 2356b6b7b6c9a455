#include "engine/BatchListTest.h"
#include "engine/menu_validation.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

#include <utility>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;

namespace {

using BatchEditing = BatchListTest;

TEST_F(BatchEditing, EachEditIsAnnouncedOnce) {
    const QSignalSpy changes(&controller, &Vexa_RemoteAppDelegate::stateChanged);
    addItem(1, "one");
    EXPECT_EQ(changes.size(), 1);
    undo.undo();
    EXPECT_EQ(changes.size(), 2);
    undo.redo();
    EXPECT_EQ(changes.size(), 3);
    select({0});
    EXPECT_EQ(changes.size(), 4);
    controller.handleRemoveFromBatchListButton();
    EXPECT_EQ(changes.size(), 5);
}

TEST_F(BatchEditing, EveryEditTellsThatWhatCanBeDoneIsAnother) {
    const QSignalSpy changes(&controller, &Vexa_RemoteAppDelegate::stateChanged);
    auto told = [&, before = qsizetype{0}]() mutable {
        return changes.count() > std::exchange(before, changes.count());
    };
    addItem(1, "one");
    EXPECT_TRUE(told());
    click(rig.ui.batchCheck, true);
    EXPECT_TRUE(told());
    select({0});
    EXPECT_TRUE(told());
    chooseMode(batchModeSelected);
    EXPECT_TRUE(told());
    controller.handleDeleteRows();
    EXPECT_TRUE(told());
    undo.undo();
    EXPECT_TRUE(told());
}

TEST_F(BatchEditing, ATitleThatIsBeingTypedIsTakenBeforeTheListChanges) {
    fill();
    const auto edited = list().batchList()[1];
    QString typed;
    rig.ui.batchTable.onCommit = [&] {
        const auto row = *list().rowsOfItems({edited}).begin();
        list().setObjectValue(typed, item_key::title, row);
    };
    typed = QStringLiteral("at an addition");
    addItem(0, "zero");
    EXPECT_EQ(edited->title, typed);
    typed = QStringLiteral("at an undo");
    undo.endEvent();
    controller.undo();
    EXPECT_EQ(edited->title, typed);
    typed = QStringLiteral("at a redo");
    controller.redo();
    EXPECT_EQ(edited->title, typed);
    controller.handleFrameRateMenuItems(rate::fps24);
    undo.endEvent();
    typed = QStringLiteral("at the undo of a setting");
    controller.undo();
    EXPECT_EQ(edited->title, typed);
    typed = QStringLiteral("at its redo");
    controller.redo();
    EXPECT_EQ(edited->title, typed);
    typed = QStringLiteral("at a deletion");
    select({0});
    controller.handleDeleteRows();
    EXPECT_EQ(edited->title, typed);
}

TEST_F(BatchEditing, WithoutAStopTimeNoPanelOpens) {
    int opened = 0;
    rig.ui.addToPanel.answer = [&] { return ++opened, panelConfirmed; };
    controller.handleAddToBatchListButton();
    choose(batch_menu::add);
    EXPECT_EQ(opened, 0);
    EXPECT_FALSE(undo.canUndo());
    setStopTime();
    controller.handleAddToBatchListButton();
    choose(batch_menu::add);
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(list().numItems(), 2u);
}

TEST_F(BatchEditing, TheButtonAddsAnItemOfTheCurrentSettings) {
    rig.setStripe("02:00:00:00", "02:10:00:00", rate::fps30Drop, sync::dtl);
    rig.ui.addToPanel.answer = [] { return panelConfirmed; };
    rig.ui.addToPanel.setTitle(QStringLiteral("Reel two"));
    controller.handleAddToBatchListButton();
    ASSERT_EQ(list().numItems(), 1u);
    EXPECT_EQ(*list().batchList()[0],
              (BatchItem{2, QStringLiteral("Reel two"), tc("02:00:00:00"), tc("02:10:00:00"),
                         rate::fps30Drop, sync::dtl, 0}));
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Add to Batch List"));
    EXPECT_TRUE(rig.ui.batchCheck.isEnabled());
}

TEST_F(BatchEditing, AnAddedItemIsBroughtIntoView) {
    const auto first = addItem(3, "first");
    EXPECT_EQ(rig.ui.batchTable.itemInView(), first);
    const auto second = addItem(2, "second");
    EXPECT_EQ(rig.ui.batchTable.itemInView(), second);
    undo.undo();
    rig.ui.batchTable.scrollToItem(first);
    undo.redo();
    EXPECT_EQ(rig.ui.batchTable.itemInView(), second);
}

TEST_F(BatchEditing, AnAdditionIsUndoneAndRedoneAndThenOnlyEverRepeated) {
    addItem(1, "first");
    countAsSaved();
    const auto added = addItem(3, "second");
    addItem(2, "between");
    EXPECT_THAT(titles(), ElementsAre("first", "between", "second"));
    EXPECT_TRUE(controller.dirty());
    undo.undo();

    countAsSaved();
    undo.undo();
    EXPECT_THAT(titles(), ElementsAre("first"));
    EXPECT_TRUE(controller.dirty());
    EXPECT_EQ(undo.redoActionName(), QStringLiteral("Add to Batch List"));

    countAsSaved();
    undo.redo();
    EXPECT_THAT(titles(), ElementsAre("first", "second"));
    EXPECT_EQ(list().batchList()[1], added) << "the very same object";
    EXPECT_FALSE(controller.dirty());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Add to Batch List"));

    undo.undo();
    EXPECT_THAT(titles(), ElementsAre("first", "second", "second"));
    EXPECT_FALSE(controller.dirty());
    undo.redo();
    EXPECT_THAT(titles(), ElementsAre("first", "second", "second", "second"));

    controller.removeItemFromBatchList(added, QStringLiteral("Add to Batch List"));
    EXPECT_THAT(titles(), ElementsAre("first")) << "equal items go together";
}

TEST_F(BatchEditing, SelectedRowsAreDeletedInOneStepAndComeBackUnselected) {
    fill();
    const auto before = list().batchList();
    select({0, 2});
    EXPECT_FALSE(rig.ui.removeFromBatchButton.isHidden());
    controller.handleDeleteRows();
    EXPECT_THAT(titles(), ElementsAre("two"));
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Delete Selected Rows"));
    EXPECT_FALSE(rig.ui.batchTable.hasSelectedRows());
    EXPECT_TRUE(rig.ui.removeFromBatchButton.isHidden());

    undo.undo();
    EXPECT_EQ(list().batchList(), before) << "the very same objects";
    EXPECT_FALSE(rig.ui.batchTable.hasSelectedRows());
    EXPECT_FALSE(undo.canUndo()) << "one step";
    EXPECT_EQ(undo.redoActionName(), QStringLiteral("Delete Selected Rows"));

    undo.redo();
    EXPECT_THAT(titles(), ElementsAre("two"));
    undo.undo();
    EXPECT_EQ(list().batchList(), before);
    EXPECT_FALSE(controller.dirty()) << "a deletion is no change to save, either way";
}

TEST_F(BatchEditing, ARedoneDeletionDeletesTheSameRowNumbersWhateverStandsThere) {
    fill();
    select({0});
    controller.handleRemoveFromBatchListButton();
    undo.undo();
    list().addItemWithReel(0, QStringLiteral("zero"), {0, 1, 2, 0});
    undo.redo();
    EXPECT_THAT(titles(), ElementsAre("one", "two", "three"));
    undo.undo();
    EXPECT_THAT(titles(), ElementsAre("one", "one", "two", "three"))
        << "what comes back is what was deleted first";
}

TEST_F(BatchEditing, DeletingWithoutASelectionDoesNothing) {
    fill();
    controller.handleDeleteRows();
    controller.handleRemoveFromBatchListButton();
    EXPECT_EQ(list().numItems(), 3u);
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(BatchEditing, DeletingTheLastRowEndsBatchStriping) {
    fill();
    click(rig.ui.batchCheck, true);
    select({0, 1, 2});
    controller.handleDeleteRows();
    EXPECT_FALSE(controller.useBatch());
    EXPECT_FALSE(rig.ui.batchCheck.state());
    EXPECT_FALSE(rig.ui.batchCheck.isEnabled());
    undo.undo();
    EXPECT_TRUE(rig.ui.batchCheck.isEnabled());
    EXPECT_FALSE(controller.useBatch()) << "it went off without a record";
}

} // namespace
