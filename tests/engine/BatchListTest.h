#pragma once

#include "support/ControllerRig.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vexa::test {

/// A controller and its batch list, which is empty at first.
struct BatchListTest : testing::Test {
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
    std::vector<std::string> titles() { return titlesOf(list().batchList()); }
    std::vector<std::string> selectedTitles() { return titlesOf(controller.selectedItems()); }

    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
    UndoManager& undo = controller.undoManager();

private:
    static std::vector<std::string> titlesOf(const BatchItems& items) {
        std::vector<std::string> titles;
        for (const auto& item : items)
            titles.push_back(item->title.toStdString());
        return titles;
    }
};

} // namespace vexa::test
