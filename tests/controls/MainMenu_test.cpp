#include "controls/MainMenu.h"
#include "support/ControllerRig.h"

#include <QCoreApplication>
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

} // namespace
