#include "controls/MainMenu.h"
#include "support/ControllerRig.h"

#include <QCoreApplication>
#include <QDialog>
#include <QMenuBar>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

struct CountingPrefsPanel final : PrefsPanel {
    void showPreferences() override { ++shown; }
    int shown = 0;
};

TEST(MainMenu, PreferencesShowsThePanelInAnyState) {
    ControllerRig rig;
    CountingPrefsPanel panel;
    auto outlets = rig.ui.outlets(rig.alerts);
    outlets.prefsController = &panel;
    Vexa_RemoteAppDelegate controller(outlets, rig.runLoop);
    controller.applicationDidFinishLaunching();
    QMenuBar bar;
    const MainMenu menu(bar, controller);
    auto* const item = menu.item(MenuAction::handlePrefsMenu);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->text(), QStringLiteral("&Preferences…"));
    item->trigger();
    EXPECT_EQ(panel.shown, 0) << "whoever chose it does not wait for the panel";
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.shown, 1);
    controller.setTransportState(transport::playing);
    item->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(panel.shown, 2);
}

TEST(MainMenu, TwoChoicesAtOnceOpenOnePanel) {
    ControllerRig rig;
    rig.controller.setStopTimeSet(true, tc("01:00:10:00"), QStringLiteral("Set Stop Time"));
    QMenuBar bar;
    const MainMenu menu(bar, rig.controller);
    int opened = 0;
    rig.ui.addToPanel.answer = [&opened] {
        ++opened;
        QDialog panel;
        panel.setModal(true);
        panel.show();
        QCoreApplication::processEvents();
        return panelCancelled;
    };
    auto* const add = menu.item(MenuAction::handleBatchListMenuItems, batch_menu::add);
    add->trigger();
    add->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(opened, 1);
}

TEST(MainMenu, TheBatchListIsCommandedByItsFourItems) {
    ControllerRig rig;
    auto& controller = rig.controller;
    QMenuBar bar;
    const MainMenu menu(bar, controller);
    const auto item = [&](std::uint64_t tag) {
        return menu.item(MenuAction::handleBatchListMenuItems, tag);
    };
    auto* const toggle = item(batch_menu::useBatch);
    EXPECT_EQ(toggle->text(), QStringLiteral("Turn On Batch Striping"));
    EXPECT_FALSE(toggle->isEnabled());
    EXPECT_EQ(item(batch_menu::all)->text(), QStringLiteral("Stripe &All Items"));
    EXPECT_EQ(item(batch_menu::selected)->text(), QStringLiteral("Stripe &Selected Items"));
    EXPECT_EQ(item(batch_menu::add)->text(), QStringLiteral("Add to Batch &List…"));
    EXPECT_FALSE(item(batch_menu::add)->isEnabled()) << "no stop time is set";

    controller.setStopTimeSet(true, tc("01:00:10:00"), QStringLiteral("Set Stop Time"));
    rig.ui.addToPanel.answer = [] { return panelConfirmed; };
    item(batch_menu::add)->trigger();
    EXPECT_EQ(controller.batchStripeData().numItems(), 0u) << "nor for this panel";
    QCoreApplication::processEvents();
    ASSERT_EQ(controller.batchStripeData().numItems(), 1u);

    toggle->trigger();
    EXPECT_TRUE(controller.useBatch());
    EXPECT_EQ(toggle->text(), QStringLiteral("Turn Off Batch Striping"));
    EXPECT_FALSE(toggle->isCheckable());
    EXPECT_TRUE(item(batch_menu::all)->isChecked());
    EXPECT_FALSE(item(batch_menu::selected)->isEnabled()) << "no row is selected";

    rig.ui.batchTable.selectRows({0});
    controller.tableViewSelectionDidChange();
    item(batch_menu::selected)->trigger();
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
    EXPECT_TRUE(item(batch_menu::selected)->isChecked());
    EXPECT_FALSE(item(batch_menu::all)->isChecked());
}

} // namespace
