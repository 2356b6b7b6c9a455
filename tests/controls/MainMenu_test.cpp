#include "controls/MainMenu.h"
#include "controls/RecentFiles.h"
#include "controls/ViewSwitches.h"
#include "support/CleanDefaults.h"
#include "support/ControllerRig.h"

#include <QActionGroup>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTemporaryFile>
#include <gtest/gtest.h>

#include <set>
#include <tuple>

using namespace vexa;
using namespace vexa::test;

namespace {

class PlainViews final : public ViewSwitches {
public:
    bool isShown(std::uint64_t tag) const override { return m_shown.contains(tag); }
    void setShown(std::uint64_t tag, bool shown) override {
        if (shown)
            m_shown.insert(tag);
        else
            m_shown.erase(tag);
        Q_EMIT changed();
    }

private:
    std::set<std::uint64_t> m_shown{view::statusLine};
};

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
    RecentFiles files;
    PlainViews views;
    const MainMenu menu(bar, controller, files, views);
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
    RecentFiles files;
    QMenuBar bar;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
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

struct CountingFilePanels final : FilePanels {
    std::optional<QString> runOpenPanel() override { return ++shown, std::nullopt; }
    std::optional<QString> runSavePanel(const QString&) override { return ++shown, std::nullopt; }
    int shown = 0;
};

/// A command performed a little after it was chosen, and what disables it in between.
struct Overtaken {
    MenuAction action;
    void (*prepare)(Vexa_RemoteAppDelegate& controller);
    void (*overtake)(Vexa_RemoteAppDelegate& controller);
};

void addItem(Vexa_RemoteAppDelegate& controller) {
    controller.addItemToBatchList(1, QStringLiteral("item"), {0, 1, 2, 0});
}
/// A list counts as saved even if it cannot be written.
void save(Vexa_RemoteAppDelegate& controller) {
    controller.saveDocumentWithURL(QStringLiteral("/nowhere/list.vexaB"));
}
void saveAndAddItem(Vexa_RemoteAppDelegate& controller) {
    save(controller);
    addItem(controller);
}
void play(Vexa_RemoteAppDelegate& controller) {
    controller.handleStripeMenuItems(transport::playing);
}
void giveUpList(Vexa_RemoteAppDelegate& controller) { controller.newDocument(); }

class OvertakenCommand : public testing::TestWithParam<Overtaken> {};

TEST_P(OvertakenCommand, IsNotPerformed) {
    const auto& [action, prepare, overtake] = GetParam();
    ControllerRig rig;
    CountingFilePanels panels;
    auto outlets = rig.ui.outlets(rig.alerts);
    outlets.filePanels = &panels;
    Vexa_RemoteAppDelegate controller(outlets, rig.runLoop);
    controller.applicationDidFinishLaunching();
    QMenuBar bar;
    RecentFiles files;
    PlainViews views;
    const MainMenu menu(bar, controller, files, views);
    prepare(controller);
    auto* const item = menu.item(action);
    ASSERT_TRUE(item->isEnabled());

    item->trigger();
    overtake(controller);
    const auto done = [&] {
        return std::tuple(controller.batchStripeData().numItems(), rig.alerts.shown.size(),
                          panels.shown);
    };
    const auto before = done();
    QCoreApplication::processEvents();
    EXPECT_FALSE(item->isEnabled());
    EXPECT_EQ(done(), before);
}

INSTANTIATE_TEST_SUITE_P(Table, OvertakenCommand,
                         testing::Values(Overtaken{MenuAction::newDocument, addItem, play},
                                         Overtaken{MenuAction::openDocument, addItem, play},
                                         Overtaken{MenuAction::saveDocument, addItem, giveUpList},
                                         Overtaken{MenuAction::revertDocumentToSaved,
                                                   saveAndAddItem, save}));

TEST(MainMenu, TheBatchListIsCommandedByItsFourItems) {
    ControllerRig rig;
    auto& controller = rig.controller;
    QMenuBar bar;
    RecentFiles files;
    PlainViews views;
    const MainMenu menu(bar, controller, files, views);
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

/// "Title shortcut" of each menu item, "-" for a separator.
std::vector<std::string> itemsOf(const QMenu& menu) {
    std::vector<std::string> items;
    for (const auto* action : menu.actions()) {
        const auto title = action->text().remove(QLatin1Char('&'));
        const auto keys = action->shortcut().toString();
        items.push_back(action->isSeparator() ? "-"
                                              : (title + QLatin1Char(' ') + keys).toStdString());
    }
    return items;
}

TEST(MainMenu, HoldsEveryCommandWithItsShortcut) {
    ControllerRig rig;
    RecentFiles files;
    QMenuBar bar;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    std::vector<std::pair<std::string, std::vector<std::string>>> menus;
    for (const auto* action : bar.actions())
        menus.emplace_back(action->text().remove(QLatin1Char('&')).toStdString(),
                           itemsOf(*action->menu()));
    const decltype(menus) expected{
        {"File",
         {"New Ctrl+N", "Open… Ctrl+O", "Open Recent ", "-", "Save Ctrl+S", "Save As… Ctrl+Shift+S",
          "Revert to Saved ", "-", "Import… ", "Export… ", "Print… Ctrl+P", "Export as PDF… ", "-",
          "Quit Ctrl+Q"}},
        {"Edit",
         {"Undo Ctrl+Z", "Redo Ctrl+Shift+Z", "-", "Cut Ctrl+X", "Copy Ctrl+C", "Paste Ctrl+V",
          "Select All Ctrl+A", "Duplicate Ctrl+D", "-", "Preferences… Ctrl+,"}},
        {"View", {"Status Line ", "Big Clock F11"}},
        {"Timecode",
         {"24 fps Ctrl+1", "25 fps Ctrl+2", "30 fps Ctrl+3", "30 df Ctrl+4", "-", "MTC ", "DTL ",
          "FSK ", "-", "Set Stop Time F8", "-", "Type Start Time F3", "Type Stop Time F4"}},
        {"Stripe", {"Stop F5", "Play F6", "Pause F7"}},
        {"Batch List",
         {"Turn On Batch Striping Ctrl+B", "-", "Stripe All Items ", "Stripe Selected Items ", "-",
          "Stripe From This Row Ctrl+R", "-", "Add to Batch List… F9", "Add Next… Shift+F9",
          "Remove ", "Rename ", "-", "Take Settings from Row ", "Replace Row by Settings ", "-",
          "Check List… "}},
        {"Help", {"User Guide F1", "-", "About "}},
    };
    EXPECT_EQ(menus, expected);
}

TEST(MainMenu, RecentFilesCannotBeOpenedWhileStriping) {
    ControllerRig rig;
    RecentFiles files;
    QMenuBar bar;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    const auto* const item = menu.item(MenuAction::other, unavailableWhileStriping);
    ASSERT_NE(item, nullptr);
    EXPECT_TRUE(item->isEnabled());
    for (const std::uint64_t state : {1, 2, 3}) {
        rig.controller.setTransportState(state);
        EXPECT_FALSE(item->isEnabled()) << state;
    }
    rig.controller.setTransportState(transport::stopped);
    EXPECT_TRUE(item->isEnabled());
}

TEST(MainMenu, TwoRecentFilesAtOnceAskOneQuestion) {
    ControllerRig rig;
    const CleanDefaults defaults;
    QTemporaryFile list;
    ASSERT_TRUE(list.open());
    RecentFiles files;
    files.noteNewRecentDocument(list.fileName());
    QMenuBar bar;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    rig.controller.addItemToBatchList(1, QStringLiteral("item"), {0, 1, 2, 0});
    rig.alerts.answers = {alertThirdButton, alertThirdButton};
    rig.alerts.whileShown = [] {
        QDialog question;
        question.setModal(true);
        question.show();
        QCoreApplication::processEvents();
    };
    auto* const recent = menu.item(MenuAction::other, unavailableWhileStriping)->menu();
    Q_EMIT recent->aboutToShow();
    recent->actions().constFirst()->trigger();
    recent->actions().constFirst()->trigger();
    QCoreApplication::processEvents();
    EXPECT_EQ(rig.alerts.shown.size(), 1u);
}

TEST(MainMenu, ARecentFileIsNotOpenedOnceARunHasBegun) {
    ControllerRig rig;
    const CleanDefaults defaults;
    QTemporaryFile list;
    ASSERT_TRUE(list.open());
    RecentFiles files;
    files.noteNewRecentDocument(list.fileName());
    QMenuBar bar;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    rig.controller.addItemToBatchList(1, QStringLiteral("item"), {0, 1, 2, 0});
    auto* const recent = menu.item(MenuAction::other, unavailableWhileStriping)->menu();
    Q_EMIT recent->aboutToShow();
    recent->actions().constFirst()->trigger();
    rig.controller.handleStripeMenuItems(transport::playing);
    QCoreApplication::processEvents();
    EXPECT_TRUE(rig.alerts.shown.empty()) << "no question either";
    EXPECT_EQ(rig.controller.batchStripeData().numItems(), 1u);
}

TEST(MainMenu, WithFskTheRatesKeepTheirMarks) {
    ControllerRig rig;
    RecentFiles files;
    QMenuBar bar;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    rig.controller.handleFrameRateMenuItems(rate::fps25);
    rig.controller.handleSyncTypeMenuItems(sync::fsk);
    for (std::uint64_t code = 0; code < rate::count; ++code) {
        const auto* const item = menu.item(MenuAction::handleFrameRateMenuItems, code);
        EXPECT_FALSE(item->isEnabled());
        EXPECT_EQ(item->isChecked(), code == rate::fps25);
    }
}

TEST(MainMenu, HelpIsThereInAnyStateAndAboutTellsTheVersion) {
    ControllerRig rig;
    RecentFiles files;
    QMenuBar bar;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    rig.controller.setTransportState(transport::playing);
    const auto items = bar.actions().constLast()->menu()->actions();
    EXPECT_TRUE(items.constFirst()->isEnabled());
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    items.constLast()->trigger();
    auto* const box = bar.findChild<QMessageBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), QStringLiteral("Vexa Remote 1.2.3"));
    EXPECT_TRUE(box->informativeText().contains(QStringLiteral("MIT")));
}

/// The item of the menu with that title; null if there is none.
QAction* titled(const QMenuBar& bar, const QString& menu, const QString& title) {
    for (auto* top : bar.actions())
        if (top->text() == menu)
            for (auto* item : top->menu()->actions())
                if (item->text() == title)
                    return item;
    return nullptr;
}

TEST(MainMenu, ShowsAndHidesPartsOfTheWindow) {
    ControllerRig rig;
    QMenuBar bar;
    RecentFiles files;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    auto* const status = titled(bar, QStringLiteral("&View"), QStringLiteral("&Status Line"));
    auto* const clock = titled(bar, QStringLiteral("&View"), QStringLiteral("&Big Clock"));
    ASSERT_TRUE(status && clock);
    EXPECT_TRUE(status->isChecked());
    EXPECT_FALSE(clock->isChecked());
    status->trigger();
    EXPECT_FALSE(views.isShown(view::statusLine));
    EXPECT_FALSE(status->isChecked());
    views.setShown(view::bigClock, true);
    EXPECT_TRUE(clock->isChecked()) << "also where the menu did not do it";
}

TEST(MainMenu, AChoiceOfOneHasRadioMarks) {
    ControllerRig rig;
    QMenuBar bar;
    RecentFiles files;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    const auto expectChoice = [&](MenuAction action, std::uint64_t count) {
        const auto* group = menu.item(action, 0)->actionGroup();
        ASSERT_NE(group, nullptr);
        EXPECT_TRUE(group->isExclusive()) << "which is what makes the marks round";
        for (std::uint64_t tag = 0; tag < count; ++tag)
            EXPECT_EQ(menu.item(action, tag)->actionGroup(), group);
        EXPECT_EQ(group->actions().size(), static_cast<qsizetype>(count));
    };
    expectChoice(MenuAction::handleFrameRateMenuItems, rate::count);
    expectChoice(MenuAction::handleSyncTypeMenuItems, sync::count);
    expectChoice(MenuAction::handleBatchListMenuItems, 2);
    for (std::uint64_t tag : {batch_menu::all, batch_menu::selected})
        EXPECT_FALSE(menu.item(MenuAction::handleBatchListMenuItems, tag)->isChecked())
            << "both may be off";
}

TEST(MainMenu, RatesHaveShortcutsInTheirOrder) {
    ControllerRig rig;
    QMenuBar bar;
    RecentFiles files;
    PlainViews views;
    const MainMenu menu(bar, rig.controller, files, views);
    for (std::uint64_t tag = 0; tag < rate::count; ++tag)
        EXPECT_EQ(menu.item(MenuAction::handleFrameRateMenuItems, tag)->shortcut().toString(),
                  QStringLiteral("Ctrl+%1").arg(tag + 1));
}

} // namespace
