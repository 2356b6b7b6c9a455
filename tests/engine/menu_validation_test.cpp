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

// The states of the table below. Each starts as at launch: 30 fps, MTC, an empty list.

void atLaunch(ControllerRig&) {}
void at25AndDtl(ControllerRig& rig) {
    rig.controller.handleFrameRateMenuItems(rate::fps25);
    rig.controller.handleSyncTypeMenuItems(sync::dtl);
}
void withFsk(ControllerRig& rig) { rig.controller.handleSyncTypeMenuItems(sync::fsk); }
void withStopTime(ControllerRig& rig) { rig.controller.handleSetStopTimeMenu(); }
void playing(ControllerRig& rig) { rig.controller.setTransportState(transport::playing); }
void paused(ControllerRig& rig) { rig.controller.setTransportState(transport::paused); }
void betweenItems(ControllerRig& rig) {
    rig.controller.setTransportState(transport::pausedBetweenItems);
}
void withItem(ControllerRig& rig) {
    rig.controller.batchStripeData().addItemWithReel(1, QStringLiteral("x"), {0, 1, 2, 0});
}
void batchOn(ControllerRig& rig) {
    withItem(rig);
    rig.controller.setUseBatch(true);
}
void rowSelected(ControllerRig& rig) {
    batchOn(rig);
    rig.ui.batchTable.selectRows({0});
}
void rowSelectedWithStopTime(ControllerRig& rig) {
    rowSelected(rig);
    withStopTime(rig);
}
void rowSelectedPlaying(ControllerRig& rig) {
    rowSelected(rig);
    rig.controller.setUseBatch(false);
    playing(rig);
}
void selectedMode(ControllerRig& rig) {
    rowSelected(rig);
    rig.controller.setBatchMode(batchModeSelected);
}
void rowSelectedBatchOff(ControllerRig& rig) {
    selectedMode(rig);
    rig.controller.setUseBatch(false);
}
void saved(ControllerRig& rig) { rig.controller.openListWithURL(QStringLiteral("/none.vexaB")); }
void changed(ControllerRig& rig) {
    rig.controller.addItemToBatchList(1, QStringLiteral("x"), {0, 1, 2, 0});
}
void savedAndChanged(ControllerRig& rig) {
    saved(rig);
    changed(rig);
}

using State = void (*)(ControllerRig&);

enum class Mark { kept, on, off };

struct Rule {
    MenuAction action;
    std::uint64_t tag;
    State state;
    bool enabled;
    Mark mark = Mark::kept;
    const char* title = nullptr; ///< null: kept
};

class MenuRule : public MenuValidation, public testing::WithParamInterface<Rule> {};

TEST_P(MenuRule, HoldsInItsState) {
    const auto& rule = GetParam();
    rule.state(rig);
    const auto item = validate(rule.action, rule.tag);
    EXPECT_EQ(item.enabled, rule.enabled);
    EXPECT_EQ(item.marked,
              rule.mark == Mark::kept ? std::nullopt : std::optional(rule.mark == Mark::on));
    EXPECT_EQ(item.title,
              rule.title ? std::optional(QString::fromLatin1(rule.title)) : std::nullopt);
}

constexpr bool yes = true;
constexpr bool no = false;

const Rule settings[]{
    {handlePrefsMenu, 0, atLaunch, yes},
    {handlePrefsMenu, 7, playing, yes},
    {handleFrameRateMenuItems, rate::fps24, atLaunch, yes, Mark::off},
    {handleFrameRateMenuItems, rate::fps25, atLaunch, yes, Mark::off},
    {handleFrameRateMenuItems, rate::fps30, atLaunch, yes, Mark::on},
    {handleFrameRateMenuItems, rate::fps30Drop, atLaunch, yes, Mark::off},
    {handleFrameRateMenuItems, rate::fps25, at25AndDtl, yes, Mark::on},
    {handleFrameRateMenuItems, rate::fps30, at25AndDtl, yes, Mark::off},
    {handleFrameRateMenuItems, rate::fps30, playing, yes, Mark::on},
    {handleFrameRateMenuItems, rate::fps24, withFsk, no},
    {handleFrameRateMenuItems, rate::fps25, withFsk, no},
    {handleFrameRateMenuItems, rate::fps30, withFsk, no},
    {handleFrameRateMenuItems, rate::fps30Drop, withFsk, no},
    {handleSyncTypeMenuItems, sync::mtc, atLaunch, yes, Mark::on},
    {handleSyncTypeMenuItems, sync::dtl, atLaunch, yes, Mark::off},
    {handleSyncTypeMenuItems, sync::fsk, atLaunch, yes, Mark::off},
    {handleSyncTypeMenuItems, sync::dtl, at25AndDtl, yes, Mark::on},
    {handleSyncTypeMenuItems, sync::mtc, withFsk, yes, Mark::off},
    {handleSyncTypeMenuItems, sync::fsk, withFsk, yes, Mark::on},
    {handleSyncTypeMenuItems, sync::mtc, playing, yes, Mark::on},
    {handleSetStopTimeMenu, 0, atLaunch, yes, Mark::kept, "Set Stop Time"},
    {handleSetStopTimeMenu, 7, playing, yes, Mark::kept, "Set Stop Time"},
    {handleSetStopTimeMenu, 0, withStopTime, yes, Mark::kept, "Don't Set Stop Time"},
};
INSTANTIATE_TEST_SUITE_P(Settings, MenuRule, testing::ValuesIn(settings));

const Rule batchList[]{
    {handleBatchListMenuItems, batch_menu::all, atLaunch, no, Mark::off},
    {handleBatchListMenuItems, batch_menu::all, withItem, no, Mark::off},
    {handleBatchListMenuItems, batch_menu::all, batchOn, yes, Mark::on},
    {handleBatchListMenuItems, batch_menu::all, selectedMode, yes, Mark::off},
    {handleBatchListMenuItems, batch_menu::all, rowSelectedBatchOff, no, Mark::off},
    {handleBatchListMenuItems, batch_menu::selected, atLaunch, no, Mark::off},
    {handleBatchListMenuItems, batch_menu::selected, batchOn, no, Mark::off},
    {handleBatchListMenuItems, batch_menu::selected, rowSelected, yes, Mark::off},
    {handleBatchListMenuItems, batch_menu::selected, selectedMode, yes, Mark::on},
    {handleBatchListMenuItems, batch_menu::selected, rowSelectedBatchOff, no, Mark::off},
    {handleBatchListMenuItems, batch_menu::useBatch, atLaunch, no, Mark::off},
    {handleBatchListMenuItems, batch_menu::useBatch, withItem, yes, Mark::kept,
     "Turn On Batch Striping"},
    {handleBatchListMenuItems, batch_menu::useBatch, batchOn, yes, Mark::kept,
     "Turn Off Batch Striping"},
    {handleBatchListMenuItems, batch_menu::add, atLaunch, no},
    {handleBatchListMenuItems, batch_menu::add, withStopTime, yes},
    {handleBatchListMenuItems, 4, selectedMode, no},
    {handleBatchListMenuItems, unavailableWhileStriping, atLaunch, no},
};
INSTANTIATE_TEST_SUITE_P(BatchList, MenuRule, testing::ValuesIn(batchList));

const Rule rows[]{
    {handleRowMenuItems, row_menu::cut, withItem, no},
    {handleRowMenuItems, row_menu::cut, rowSelected, yes},
    {handleRowMenuItems, row_menu::copy, atLaunch, yes},
    {handleRowMenuItems, row_menu::paste, playing, yes},
    {handleRowMenuItems, row_menu::selectAll, atLaunch, yes},
    {handleRowMenuItems, row_menu::duplicate, withItem, no},
    {handleRowMenuItems, row_menu::duplicate, rowSelected, yes},
    {handleRowMenuItems, row_menu::remove, withItem, no},
    {handleRowMenuItems, row_menu::remove, rowSelected, yes},
    {handleRowMenuItems, row_menu::rename, withItem, no},
    {handleRowMenuItems, row_menu::rename, rowSelected, yes},
    {handleRowMenuItems, row_menu::takeSettings, withItem, no},
    {handleRowMenuItems, row_menu::takeSettings, rowSelected, yes},
    {handleRowMenuItems, row_menu::takeSettings, rowSelectedPlaying, no},
    {handleRowMenuItems, row_menu::replaceBySettings, rowSelected, no},
    {handleRowMenuItems, row_menu::replaceBySettings, rowSelectedWithStopTime, yes},
    {handleRowMenuItems, row_menu::addNext, withStopTime, no},
    {handleRowMenuItems, row_menu::addNext, withItem, no},
    {handleRowMenuItems, row_menu::addNext, rowSelectedWithStopTime, yes},
    {handleRowMenuItems, row_menu::check, atLaunch, yes},
    {handleRowMenuItems, row_menu::importRows, atLaunch, yes},
    {handleRowMenuItems, row_menu::exportRows, atLaunch, no},
    {handleRowMenuItems, row_menu::exportRows, withItem, yes},
    {handleRowMenuItems, row_menu::print, atLaunch, no},
    {handleRowMenuItems, row_menu::print, withItem, yes},
    {handleRowMenuItems, row_menu::exportPdf, atLaunch, no},
    {handleRowMenuItems, row_menu::exportPdf, withItem, yes},
    {handleRowMenuItems, 99, rowSelected, no},
};
INSTANTIATE_TEST_SUITE_P(Rows, MenuRule, testing::ValuesIn(rows));

const Rule transportStates[]{
    {handleStripeMenuItems, transport::stopped, atLaunch, no},
    {handleStripeMenuItems, transport::playing, atLaunch, yes},
    {handleStripeMenuItems, transport::paused, atLaunch, yes},
    {handleStripeMenuItems, transport::stopped, playing, yes},
    {handleStripeMenuItems, transport::playing, playing, no},
    {handleStripeMenuItems, transport::paused, playing, yes},
    {handleStripeMenuItems, transport::stopped, paused, yes},
    {handleStripeMenuItems, transport::playing, paused, yes},
    {handleStripeMenuItems, transport::paused, paused, no},
    {handleStripeMenuItems, transport::stopped, betweenItems, yes},
    {handleStripeMenuItems, transport::playing, betweenItems, yes},
    {handleStripeMenuItems, transport::paused, betweenItems, yes},
};
INSTANTIATE_TEST_SUITE_P(Transport, MenuRule, testing::ValuesIn(transportStates));

const Rule documents[]{
    {newDocument, 0, atLaunch, yes},
    {newDocument, 0, playing, no},
    {newDocument, 0, paused, no},
    {newDocument, 7, betweenItems, no},
    {openDocument, 0, atLaunch, yes},
    {openDocument, 0, playing, no},
    {openDocument, 0, paused, no},
    {openDocument, 7, betweenItems, no},
    {saveDocument, 0, atLaunch, no},
    {saveDocument, 0, saved, no},
    {saveDocument, 0, changed, yes},
    {saveDocument, 7, savedAndChanged, yes},
    {saveDocumentAs, 0, atLaunch, yes},
    {saveDocumentAs, 7, playing, yes},
    {revertDocumentToSaved, 0, atLaunch, no},
    {revertDocumentToSaved, 0, saved, no},
    {revertDocumentToSaved, 0, changed, no},
    {revertDocumentToSaved, 7, savedAndChanged, yes},
};
INSTANTIATE_TEST_SUITE_P(Documents, MenuRule, testing::ValuesIn(documents));

const Rule others[]{
    {other, 10000, atLaunch, yes},    {other, 10000, playing, no}, {other, 10000, paused, no},
    {other, 10000, betweenItems, no}, {other, 0, atLaunch, no},    {other, 9999, atLaunch, no},
};
INSTANTIATE_TEST_SUITE_P(Others, MenuRule, testing::ValuesIn(others));

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

} // namespace
