#include "engine/menu_validation.h"
#include "support/ControllerRig.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct BatchEditing : testing::Test {
    BatchItemRef addItem(std::uint64_t reel, const char* title) {
        controller.addItemToBatchList(
            reel, QString::fromLatin1(title),
            {tc("01:00:00:00"), tc("01:00:10:00"), rate::fps25, sync::mtc});
        undo.endEvent();
        for (const auto& item : list().batchList())
            if (item->title == QLatin1String(title))
                return item;
        return nullptr;
    }
    /// Adds three items, on reels 1 to 3, to a list without unsaved changes.
    void fill() {
        for (const char* title : {"one", "two", "three"})
            list().addItemWithReel(list().numItems() + 1, QString::fromLatin1(title), {0, 1, 2, 0});
        controller.handleBatchControlEnabling();
    }
    /// A list counts as saved even if it cannot be written.
    void countAsSaved() { controller.saveDocumentWithURL(QStringLiteral("/nowhere/list.vexaB")); }
    void select(const RowIndexes& rows) {
        rig.ui.batchTable.selectRows(rows);
        controller.tableViewSelectionDidChange();
    }
    void setStopTime() {
        controller.setStopTimeSet(true, tc("01:00:10:00"), QStringLiteral("Set Stop Time"));
        undo.endEvent();
    }
    void click(PlainButton& check, bool on) {
        check.setState(on);
        controller.handleBatchCheck();
        undo.endEvent();
    }
    void chooseMode(std::uint64_t mode) {
        rig.ui.batchRadios.selectCellWithTag(mode);
        controller.handleBatchRadios();
        undo.endEvent();
    }
    void choose(std::uint64_t menuTag) {
        controller.handleBatchListMenuItems(menuTag);
        undo.endEvent();
    }
    VexaBatchStripeData& list() { return controller.batchStripeData(); }
    std::vector<std::string> titles() {
        std::vector<std::string> titles;
        for (const auto& item : list().batchList())
            titles.push_back(item->title.toStdString());
        return titles;
    }

    std::vector<std::string> selectedTitles() {
        std::vector<std::string> titles;
        for (const auto& item : list().itemsOfRows(rig.ui.batchTable.selectedRowIndexes()))
            titles.push_back(item->title.toStdString());
        return titles;
    }

    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
    UndoManager& undo = controller.undoManager();
};

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

TEST_F(BatchEditing, TheCheckBoxNamesItsUndoByTheNewState) {
    fill();
    click(rig.ui.batchCheck, true);
    EXPECT_TRUE(controller.useBatch());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Turn On Batch Striping"));
    click(rig.ui.batchCheck, false);
    EXPECT_FALSE(controller.useBatch());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Turn Off Batch Striping"));

    undo.undo();
    EXPECT_TRUE(controller.useBatch());
    EXPECT_TRUE(rig.ui.batchCheck.state());
    EXPECT_EQ(undo.redoActionName(), QStringLiteral("Turn Off Batch Striping"));
    undo.undo();
    EXPECT_FALSE(rig.ui.batchCheck.state());
    undo.redo();
    EXPECT_TRUE(controller.useBatch());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Turn On Batch Striping"));
}

TEST_F(BatchEditing, TheCheckBoxRecordsAlsoWhatChangesNothing) {
    controller.setUseBatch(true);
    click(rig.ui.batchCheck, true);
    EXPECT_TRUE(undo.canUndo());
    undo.undo();
    EXPECT_TRUE(controller.useBatch());
}

TEST_F(BatchEditing, TheMenuTogglesBatchStripingAsTheCheckBoxDoes) {
    fill();
    choose(batch_menu::useBatch);
    EXPECT_TRUE(controller.useBatch());
    EXPECT_TRUE(rig.ui.batchCheck.state());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Turn On Batch Striping"));
    choose(batch_menu::useBatch);
    EXPECT_FALSE(rig.ui.batchCheck.state());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Turn Off Batch Striping"));
    undo.undo();
    undo.undo();
    EXPECT_FALSE(controller.useBatch());
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(BatchEditing, ChoosingSelectedTurnsBatchStripingOnAndUndoLeavesItOn) {
    fill();
    select({1});
    chooseMode(batchModeSelected);
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
    EXPECT_TRUE(controller.useBatch());
    EXPECT_TRUE(rig.ui.batchCheck.state());
    EXPECT_FALSE(controller.previousUseBatch());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Stripe Selected"));

    undo.undo();
    EXPECT_EQ(controller.batchMode(), batchModeAll);
    EXPECT_EQ(rig.ui.batchRadios.selectedTag(), batchModeAll);
    EXPECT_TRUE(controller.useBatch());
    EXPECT_TRUE(rig.ui.batchCheck.state());
    EXPECT_FALSE(undo.canUndo());
    undo.redo();
    EXPECT_EQ(rig.ui.batchRadios.selectedTag(), batchModeSelected);
    chooseMode(batchModeAll);
    EXPECT_TRUE(controller.previousUseBatch());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Stripe All"));
}

TEST_F(BatchEditing, ChoosingTheSelectedRadioAgainRecordsNothing) {
    fill();
    chooseMode(batchModeAll);
    EXPECT_FALSE(undo.canUndo());
    EXPECT_FALSE(controller.useBatch());
}

TEST_F(BatchEditing, UndoingToTheCurrentModeRecordsNothing) {
    fill();
    select({1});
    chooseMode(batchModeSelected);
    select({});
    EXPECT_EQ(controller.batchMode(), batchModeAll) << "without a selection";
    undo.undo();
    EXPECT_FALSE(undo.canRedo());
}

TEST_F(BatchEditing, TheMenuChoosesTheModeAndNothingElse) {
    fill();
    select({1});
    for (const auto mode : {batchModeSelected, batchModeAll}) {
        const QSignalSpy changes(&controller, &Vexa_RemoteAppDelegate::stateChanged);
        choose(mode);
        EXPECT_EQ(controller.batchMode(), mode);
        EXPECT_EQ(rig.ui.batchRadios.selectedTag(), mode);
        EXPECT_GT(changes.count(), 0);
    }
    EXPECT_FALSE(controller.useBatch());
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(BatchEditing, OtherTagsOfTheMenuDoNothing) {
    fill();
    for (const auto tag : {std::uint64_t{4}, UINT64_MAX})
        choose(tag);
    EXPECT_EQ(controller.batchMode(), batchModeAll);
    EXPECT_FALSE(undo.canUndo());
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

TEST_F(BatchEditing, StripingFromARowSelectsItAndAllAfterItAndBeginsNothing) {
    fill();
    rig.ui.batchTable.moveKeyboardTo({1});
    const QSignalSpy changes(&controller, &Vexa_RemoteAppDelegate::stateChanged);
    controller.stripeFromThisRow();
    EXPECT_EQ(changes.size(), 1);
    EXPECT_THAT(selectedTitles(), ElementsAre("two", "three"));
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
    EXPECT_EQ(rig.ui.batchRadios.cellOn(), batchModeSelected);
    EXPECT_TRUE(controller.useBatch());
    EXPECT_TRUE(rig.ui.batchCheck.state());
    EXPECT_EQ(controller.transportState(), transport::stopped);
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Stripe Selected"));
}

TEST_F(BatchEditing, StripingFromSelectedRowsBeginsWithTheFirstOfThem) {
    fill();
    select({1, 2});
    chooseMode(batchModeSelected);
    rig.ui.batchTable.moveKeyboardTo({2});
    const QSignalSpy changes(&controller, &Vexa_RemoteAppDelegate::stateChanged);
    controller.stripeFromThisRow();
    EXPECT_EQ(changes.size(), 1) << "also where the mode was chosen before";
    EXPECT_THAT(selectedTitles(), ElementsAre("two", "three"));
}

TEST_F(BatchEditing, StripingFromARowNeedsARowAndNoRun) {
    const auto isEnabled = [&] {
        return validateMenuItem(controller, MenuAction::stripeFromThisRow, 0).enabled;
    };
    EXPECT_FALSE(isEnabled());
    controller.stripeFromThisRow();
    EXPECT_FALSE(controller.useBatch());
    fill();
    EXPECT_FALSE(isEnabled());
    rig.ui.batchTable.moveKeyboardTo({1});
    EXPECT_TRUE(isEnabled());
    rig.press(transport::playing);
    EXPECT_FALSE(isEnabled());
    rig.press(transport::paused);
    EXPECT_TRUE(isEnabled());
}

} // namespace
