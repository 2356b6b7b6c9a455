#include "engine/menu_validation.h"
#include "support/ControllerRig.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

struct MenuValidation : testing::Test {
    MenuItemState validate(MenuAction action, std::uint64_t tag = 0) {
        return validateMenuItem(controller, action, tag);
    }
    bool enabled(MenuAction action, std::uint64_t tag = 0) { return validate(action, tag).enabled; }

    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
};

using enum MenuAction;

TEST_F(MenuValidation, RatesAreMarkedByTheCurrentOne) {
    for (std::uint64_t code = 0; code < rate::count; ++code) {
        EXPECT_TRUE(enabled(handleFrameRateMenuItems, code));
        EXPECT_EQ(validate(handleFrameRateMenuItems, code).marked, code == rate::fps30);
    }
}

TEST_F(MenuValidation, WithFskRatesAreDisabledAndKeepTheirMarks) {
    controller.handleSyncTypeMenuItems(sync::fsk);
    for (std::uint64_t code = 0; code < rate::count; ++code) {
        EXPECT_FALSE(enabled(handleFrameRateMenuItems, code));
        EXPECT_EQ(validate(handleFrameRateMenuItems, code).marked, std::nullopt);
    }
}

TEST_F(MenuValidation, SyncTypesAreAlwaysThere) {
    controller.handleSyncTypeMenuItems(sync::dtl);
    for (std::uint64_t code = 0; code < sync::count; ++code) {
        EXPECT_TRUE(enabled(handleSyncTypeMenuItems, code));
        EXPECT_EQ(validate(handleSyncTypeMenuItems, code).marked, code == sync::dtl);
    }
}

TEST_F(MenuValidation, TheStopTimeItemIsNamedByWhatItDoes) {
    EXPECT_EQ(validate(handleSetStopTimeMenu).title, QStringLiteral("Set Stop Time"));
    controller.handleSetStopTimeMenu();
    EXPECT_TRUE(rig.ui.stopTimeCheck.state());
    EXPECT_EQ(validate(handleSetStopTimeMenu).title, QStringLiteral("Don't Set Stop Time"));
    controller.handleSetStopTimeMenu();
    EXPECT_FALSE(controller.stopTimeSet());
    EXPECT_FALSE(rig.ui.stopTimeCheck.state());
    EXPECT_TRUE(rig.ui.addToBatchButton.isHidden());
    EXPECT_EQ(validate(MenuAction::undo).title, QStringLiteral("Undo Set Stop Time"));
    EXPECT_TRUE(enabled(handleSetStopTimeMenu));
}

TEST_F(MenuValidation, TheCurrentTransportStateCannotBeChosen) {
    for (const auto state : {transport::stopped, transport::playing, transport::paused}) {
        controller.handleStripeMenuItems(state);
        EXPECT_EQ(rig.ui.transportMatrix.selectedTag(), state);
        for (std::uint64_t tag = 0; tag < 3; ++tag)
            EXPECT_EQ(enabled(handleStripeMenuItems, tag), tag != state);
    }
}

TEST_F(MenuValidation, BetweenItemsEveryTransportStateCanBeChosen) {
    controller.setTransportState(transport::pausedBetweenItems);
    for (std::uint64_t tag = 0; tag < 3; ++tag)
        EXPECT_TRUE(enabled(handleStripeMenuItems, tag));
}

TEST_F(MenuValidation, UndoAndRedoCarryTheNameOfTheStep) {
    EXPECT_FALSE(enabled(MenuAction::undo));
    EXPECT_EQ(validate(MenuAction::undo).title, QStringLiteral("Undo"));
    controller.handleFrameRateMenuItems(rate::fps24);
    EXPECT_TRUE(enabled(MenuAction::undo));
    EXPECT_EQ(validate(MenuAction::undo).title, QStringLiteral("Undo Change Frame Rate"));
    controller.undo();
    EXPECT_TRUE(enabled(MenuAction::redo));
    EXPECT_EQ(validate(MenuAction::redo).title, QStringLiteral("Redo Change Frame Rate"));
}

TEST_F(MenuValidation, NewAndOpenNeedAStoppedTransport) {
    for (const auto action : {newDocument, openDocument}) {
        EXPECT_TRUE(enabled(action));
        for (const std::uint64_t state : {1, 2, 3}) {
            controller.setTransportState(state);
            EXPECT_FALSE(enabled(action)) << state;
        }
        controller.setTransportState(transport::stopped);
    }
}

TEST_F(MenuValidation, AnUnchangedListCannotBeSavedButSavedAs) {
    EXPECT_FALSE(enabled(saveDocument));
    EXPECT_FALSE(enabled(revertDocumentToSaved));
    EXPECT_TRUE(enabled(saveDocumentAs));
    EXPECT_TRUE(enabled(handlePrefsMenu));
}

TEST_F(MenuValidation, OtherItemsGoByTheTagAlone) {
    EXPECT_TRUE(enabled(other, 10000));
    EXPECT_FALSE(enabled(other, 0));
    EXPECT_FALSE(enabled(other, 9999));
    controller.setTransportState(transport::playing);
    EXPECT_FALSE(enabled(other, 10000));
}

TEST_F(MenuValidation, WithoutItemsBatchStripingCannotBeTurnedOn) {
    const auto state = validate(handleBatchListMenuItems, batch_menu::useBatch);
    EXPECT_FALSE(state.enabled);
    EXPECT_EQ(state.marked, false);
    EXPECT_EQ(state.title, std::nullopt);
}

TEST_F(MenuValidation, BatchStripingIsNamedByWhatChoosingItDoes) {
    controller.batchStripeData().addItemWithReel(1, QStringLiteral("x"), 0, 1, 2, 0);
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::useBatch).title,
              QStringLiteral("Turn On Batch Striping"));
    controller.setUseBatch(true);
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::useBatch).title,
              QStringLiteral("Turn Off Batch Striping"));
    EXPECT_TRUE(enabled(handleBatchListMenuItems, batch_menu::useBatch));
}

TEST_F(MenuValidation, BatchModesNeedBatchStripingAndSelectedAlsoARow) {
    EXPECT_FALSE(enabled(handleBatchListMenuItems, batch_menu::all));
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::all).marked, false);
    controller.setUseBatch(true);
    EXPECT_TRUE(enabled(handleBatchListMenuItems, batch_menu::all));
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::all).marked, true);
    EXPECT_FALSE(enabled(handleBatchListMenuItems, batch_menu::selected));
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::selected).marked, false);
    rig.ui.batchTable.selectRows({0});
    EXPECT_TRUE(enabled(handleBatchListMenuItems, batch_menu::selected));
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::selected).marked, false);
    controller.setBatchMode(batchModeSelected);
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::selected).marked, true);
    EXPECT_EQ(validate(handleBatchListMenuItems, batch_menu::all).marked, false);
}

TEST_F(MenuValidation, AddingNeedsAStopTime) {
    EXPECT_FALSE(enabled(handleBatchListMenuItems, batch_menu::add));
    controller.handleSetStopTimeMenu();
    EXPECT_TRUE(enabled(handleBatchListMenuItems, batch_menu::add));
    EXPECT_FALSE(enabled(handleBatchListMenuItems, 4));
}

} // namespace
