#include "controls/BatchTableTest.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

using TableView = BatchTableTest;

TEST_F(TableView, ADoubleClickEditsATitleAndNothingElse) {
    for (const int column : {0, 2, 3, 4, 5}) {
        doubleClick(1, column);
        EXPECT_EQ(editor(), nullptr) << column;
    }
    doubleClick(1, 1);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), u"item"_s);
    QTest::keyClick(editor(), Qt::Key_Backspace);
    QTest::keyClick(editor(), Qt::Key_Backspace);
    type(u"A reel"_s);
    EXPECT_EQ(list.batchList()[1]->title, u"A reel"_s);
    EXPECT_EQ(list.batchList()[0]->title, u"item"_s);
    EXPECT_EQ(deletions.count(), 0);
}

TEST_F(TableView, TheEditKeyEditsTheTitleFromAnyColumn) {
    table.setCurrentIndex(table.model()->index(2, 4));
    QTest::keyClick(&table, Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    type(u"last"_s);
    EXPECT_EQ(list.batchList()[2]->title, u"last"_s);
}

TEST_F(TableView, MarksLeaveATitleThatIsBeingTypedAsItIs) {
    doubleClick(1, 1);
    ASSERT_NE(editor(), nullptr);
    const auto item = list.batchList()[1];
    const auto mark = [&] {
        table.markItem(item, StripeMark::underWay);
        table.markItem(item, StripeMark::finished);
        table.clearMarks();
    };
    mark();
    EXPECT_EQ(editor()->selectedText(), u"item"_s) << "what is typed still replaces it";
    QTest::keyClicks(editor(), u"A reel"_s);
    mark();
    EXPECT_EQ(editor()->text(), u"A reel"_s);
    QTest::keyClick(editor(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor(), Qt::Key_Backspace);
    mark();
    EXPECT_EQ(editor()->text(), QString());
    type(u"B"_s);
    EXPECT_EQ(item->title, u"B"_s);
}

TEST_F(TableView, TheTitleThatIsBeingTypedCanBeTakenAtAnyTime) {
    table.commitEditing();
    for (const int column : {1, 4}) {
        table.setCurrentIndex(table.model()->index(2, column));
        QTest::keyClick(&table, Qt::Key_F2);
        ASSERT_NE(editor(), nullptr);
        QTest::keyClicks(editor(), u"column %1"_s.arg(column));
        table.commitEditing();
        EXPECT_EQ(list.batchList()[2]->title, u"column %1"_s.arg(column));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(editor(), nullptr);
    }
}

TEST_F(TableView, TypingFindsATitle) {
    list.addItemWithReel(9, u"Overture"_s, {0, 0, 0, 0});
    table.reloadData();
    table.moveKeyboardTo({0});
    table.keyboardSearch(u"ov"_s);
    EXPECT_EQ(table.onlySelectedRow(), 3u);
}

TEST_F(TableView, ATitleThatDoesNotFitHasAToolTip) {
    const auto toolTipAt = [this](int row) {
        const auto cell = middleOf(row, 1);
        QHelpEvent help(QEvent::ToolTip, cell, table.viewport()->mapToGlobal(cell));
        QApplication::sendEvent(table.viewport(), &help);
        return QToolTip::text();
    };
    list.batchList()[0]->title = u"A title of many words "_s.repeated(9);
    EXPECT_EQ(toolTipAt(1), QString());
    EXPECT_TRUE(toolTipAt(0).startsWith(u"A title of many"_s));
    QToolTip::hideText();
}

} // namespace
