#include "controls/CheckPanel.h"
#include "controls/VexaBatchTableView.h"
#include "defaults/user_defaults.h"
#include "support/CleanDefaults.h"
#include "support/ControllerRig.h"

#include <QAbstractItemModelTester>
#include <QListView>
#include <QSpinBox>
#include <QTest>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;

namespace {

class Check : public testing::Test {
protected:
    Check() {
        auto outlets = rig.ui.outlets(rig.alerts);
        outlets.batchTable = &table;
        controller.emplace(outlets, rig.runLoop);
        controller->applicationDidFinishLaunching();
        controller->addItemToBatchList(1, u"one"_s, {tc("01:00:00:00"), tc("01:10:00:00"), 1, 0});
        panel.emplace(*controller, table, nullptr);
        panel->show();
    }
    QStringList findings() {
        QCoreApplication::processEvents();
        QStringList texts;
        const auto* model = list()->model();
        for (int row = 0; row < model->rowCount(); ++row)
            texts += model->index(row, 0).data().toString();
        return texts;
    }
    QListView* list() { return panel->findChild<QListView*>(); }

    CleanDefaults clean;
    ControllerRig rig;
    VexaBatchTableView table;
    std::optional<Vexa_RemoteAppDelegate> controller;
    std::optional<CheckPanel> panel;
};

TEST_F(Check, FollowsTheList) {
    EXPECT_EQ(findings(), QStringList());
    controller->addItemToBatchList(1, u"two"_s, {tc("01:05:00:00"), tc("01:20:00:00"), 1, 0});
    EXPECT_EQ(findings(), QStringList{u"Row 2, “two” overlaps “one”, which ends at 01:10:00:00"_s});
    controller->undo();
    EXPECT_EQ(findings(), QStringList());
}

TEST_F(Check, RemembersTheLengthOfATape) {
    panel->findChild<QSpinBox*>()->setValue(9);
    EXPECT_EQ(findings(), QStringList{u"Row 1, “one” runs past the end of reel 1's tape"_s});
    EXPECT_EQ(defaults::read().tapeMinutes, 9);
    EXPECT_EQ(CheckPanel(*controller, table, nullptr).findChild<QSpinBox*>()->value(), 9);
}

TEST_F(Check, GoesToTheRowOfAFinding) {
    controller->addItemToBatchList(1, u"two"_s, {tc("01:05:00:00"), tc("01:20:00:00"), 1, 0});
    ASSERT_EQ(findings().size(), 1);
    Q_EMIT list()->activated(list()->model()->index(0, 0));
    EXPECT_EQ(table.onlySelectedRow(), 1u);
    EXPECT_EQ(table.keyboardRow(), RowIndexes{1});
}

} // namespace
