#include "engine/BatchListTest.h"
#include "engine/menu_validation.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;

namespace {

using BatchEditing = BatchListTest;

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
