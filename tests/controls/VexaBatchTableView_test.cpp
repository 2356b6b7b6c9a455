#include "controls/BatchTableTest.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <optional>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

using TableView = BatchTableTest;

TEST_F(TableView, SelectsSeveralWholeRows) {
    QSignalSpy selections(&table, &VexaBatchTableView::selectionDidChange);
    EXPECT_FALSE(table.hasSelectedRows());
    click(2);
    EXPECT_EQ(selections.count(), 1);
    click(0, Qt::ControlModifier);
    EXPECT_TRUE(table.hasSelectedRows());
    EXPECT_EQ(table.selectedRowIndexes(), (RowIndexes{0, 2}));
    click(2, Qt::ControlModifier);
    click(0, Qt::ControlModifier);
    EXPECT_FALSE(table.hasSelectedRows());
    table.selectAll();
    EXPECT_EQ(table.selectedRowIndexes(), (RowIndexes{0, 1, 2}));
}

TEST_F(TableView, KnowsTheOnlySelectedRow) {
    EXPECT_EQ(table.onlySelectedRow(), std::nullopt);
    click(1);
    EXPECT_EQ(table.onlySelectedRow(), 1u);
    click(2, Qt::ControlModifier);
    EXPECT_EQ(table.onlySelectedRow(), std::nullopt);
}

TEST_F(TableView, AReloadLeavesNoRowSelectedAndTheViewWhereItIs) {
    addRows(100);
    table.selectRow(60);
    table.verticalScrollBar()->setValue(500);
    table.reloadData();
    QCoreApplication::processEvents();
    EXPECT_FALSE(table.hasSelectedRows());
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes());
    EXPECT_EQ(table.verticalScrollBar()->value(), 500);
}

TEST_F(TableView, RowsAreSelectedWithoutTelling) {
    addRows(7);
    table.selectRow(0);
    const QSignalSpy selections(&table, &VexaBatchTableView::selectionDidChange);
    for (const auto& rows :
         {RowIndexes{1, 2, 3, 5, 9}, RowIndexes{}, RowIndexes{0}, RowIndexes{0, 1, 2}}) {
        table.selectRows(rows);
        EXPECT_EQ(table.selectedRowIndexes(), rows);
        EXPECT_EQ(table.hasSelectedRows(), !rows.empty());
    }
    EXPECT_EQ(selections.count(), 0);
    EXPECT_TRUE(table.selectionModel()->isRowSelected(2)) << "whole rows";
}

TEST_F(TableView, BackspaceAndDeleteTellOnceWhenRowsAreSelected) {
    table.setFocus();
    for (const auto key : {Qt::Key_Backspace, Qt::Key_Delete}) {
        table.selectRow(1);
        deletions.clear();
        QTest::keyClick(&table, key);
        EXPECT_EQ(deletions.count(), 1);
        table.clearSelection();
        QTest::keyClick(&table, key);
        EXPECT_EQ(deletions.count(), 1) << "nothing is selected";
    }
}

TEST_F(TableView, OtherKeysAndOtherTextDeleteNothing) {
    table.selectRow(1);
    for (const auto& text : {QString(), u"x"_s, u"\x7f\x7f"_s, u"\b\b"_s, u"\x03"_s})
        EXPECT_FALSE(table.handleKey(text));
    QTest::keyClick(&table, Qt::Key_Backspace, Qt::ControlModifier);
    QTest::keyClick(&table, Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(deletions.count(), 0);
    EXPECT_TRUE(table.handleKey(u"\x7f"_s));
    EXPECT_TRUE(table.handleKey(u"\b"_s));
    EXPECT_EQ(deletions.count(), 2);
}

TEST_F(TableView, WithoutASelectionTheDeleteKeysAreNotTaken) {
    table.clearSelection();
    EXPECT_FALSE(table.handleKey(u"\x7f"_s));
    EXPECT_FALSE(table.handleDelete());
    EXPECT_EQ(deletions.count(), 0);
}

TEST_F(TableView, TheKeyboardGoesOnFromTheRowItWasMovedTo) {
    addRows(100);
    QCoreApplication::processEvents();
    EXPECT_EQ(table.keyboardRow(), RowIndexes());
    table.selectRows({1});
    table.moveKeyboardTo({60, 70});
    EXPECT_EQ(table.keyboardRow(), RowIndexes{60});
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{1});
    EXPECT_EQ(table.verticalScrollBar()->value(), 0) << "in view is what was";
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{61});
    EXPECT_TRUE(isInView(61));

    table.moveKeyboardTo({});
    EXPECT_EQ(table.keyboardRow(), RowIndexes{61});
    table.moveKeyboardTo({500});
    EXPECT_EQ(table.keyboardRow(), RowIndexes{102}) << "the last one";
    table.reloadData();
    EXPECT_EQ(table.keyboardRow(), RowIndexes());
    list.clearBatchList();
    table.reloadData();
    table.moveKeyboardTo({0});
    EXPECT_EQ(table.keyboardRow(), RowIndexes());
}

TEST_F(TableView, AnItemIsBroughtIntoViewAndTheSelectionStays) {
    addRows(500);
    const auto item = list.batchList()[400];
    scrollTo(item);
    EXPECT_TRUE(isInView(400)) << "straight after a reload";
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes());

    table.selectRow(1);
    scrollTo(item);
    EXPECT_TRUE(isInView(400));
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{1});

    const int position = table.verticalScrollBar()->value();
    list.removeItem(item);
    scrollTo(item);
    EXPECT_EQ(table.verticalScrollBar()->value(), position) << "it is not in the list";
}

TEST_F(TableView, TheRowThatComesUnderWayIsBroughtIntoView) {
    addRows(500);
    table.selectRow(0);
    const auto item = list.batchList()[400];
    table.markItem(item, StripeMark::underWay);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isInView(400));
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{0});

    const int position = table.verticalScrollBar()->value();
    table.markItem(list.batchList()[0], StripeMark::finished);
    EXPECT_EQ(table.verticalScrollBar()->value(), position) << "a finished row is not looked for";
    list.removeItem(item);
    table.reloadData();
    table.markItem(item, StripeMark::underWay);
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes());
}

TEST_F(TableView, TabLeavesTheTable) {
    QWidget window;
    auto* child = new VexaBatchTableView(&window);
    setUp(*child);
    auto* other = new QLineEdit(&window);
    window.show();
    window.activateWindow();
    child->reloadData();
    child->setFocus();
    QTest::keyClick(child, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), other);
}

} // namespace
