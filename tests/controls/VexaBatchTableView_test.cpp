#include "controls/VexaBatchTableHeader.h"
#include "controls/VexaBatchTableView.h"
#include "support/CleanDefaults.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

void setUp(VexaBatchTableView& table) {
    table.setColumnIdentifiers({item_key::reel, item_key::title, item_key::start, item_key::stop,
                                item_key::rate, item_key::type});
    table.installHeader();
    table.setIntercellSpacing(5.0, 2.0);
    table.resize(760, 300);
}

struct TableView : testing::Test {
    TableView() {
        setUp(table);
        addRows(3);
        table.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&table));
    }
    void addRows(std::uint64_t count) {
        for (std::uint64_t row = 0; row < count; ++row)
            list.addItemWithReel(list.numItems(), u"item"_s, {0, 0, 0, 0});
        table.reloadData();
    }
    QPoint middleOf(int row, int column) {
        return table.visualRect(table.model()->index(row, column)).center();
    }
    bool isInView(int row) {
        return table.viewport()->rect().contains(table.visualRect(table.model()->index(row, 0)));
    }
    void scrollTo(const BatchItemRef& item) {
        table.scrollToItem(item);
        QCoreApplication::processEvents();
    }
    void click(int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, modifiers, middleOf(row, 2));
    }
    void doubleClick(int row, int column) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, middleOf(row, column));
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, middleOf(row, column));
    }
    /// Replaces the text of the open editor and commits it.
    void type(const QString& text) {
        QTest::keyClicks(editor(), text);
        QTest::keyClick(editor(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    QLineEdit* editor() { return table.viewport()->findChild<QLineEdit*>(); }

    const CleanDefaults defaults;
    VexaBatchStripeData list{nullptr};
    VexaBatchTableView table;
    QSignalSpy deletions{&table, &VexaBatchTableView::vexarowsdeleted};
};

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

TEST_F(TableView, ColumnsAreApartByTheIntercellSpacing) {
    const auto* header = qobject_cast<VexaBatchTableHeader*>(table.horizontalHeader());
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->spacing(), 5);
    EXPECT_EQ(header->columnWidth(0), header->sectionSize(0) - 5);
    const int content = table.rowHeight(0) - 2;
    table.setIntercellSpacing(5.9, 10.0);
    EXPECT_EQ(header->spacing(), 5) << "cut off towards zero";
    EXPECT_EQ(table.rowHeight(0), content + 10);
}

TEST_F(TableView, AWidthThatTheOperatorGaveAColumnLasts) {
    auto* header = table.horizontalHeader();
    const int before = header->sectionSize(2);
    const QPoint edge(header->sectionViewportPosition(3) - 1, header->height() / 2);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(header->viewport(), edge + QPoint(20, 0));
    QTest::mouseMove(header->viewport(), edge + QPoint(60, 0));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(60, 0));
    EXPECT_EQ(header->sectionSize(2), before + 60);

    VexaBatchTableView next;
    setUp(next);
    EXPECT_EQ(next.horizontalHeader()->sectionSize(2), before + 60);
    EXPECT_EQ(next.horizontalHeader()->sectionSize(3), header->sectionSize(3));
}

TEST_F(TableView, TheTitlesTakeTheWidthThatIsLeft) {
    const auto* header = table.horizontalHeader();
    for (const int width : {500, 900}) {
        table.resize(width, 300);
        QCoreApplication::processEvents();
        EXPECT_EQ(header->length(), table.viewport()->width());
    }
}

class FontScale : public testing::TestWithParam<int> {};

TEST_P(FontScale, LeavesRoomForWhatTheColumnsAreMadeFor) {
    const CleanDefaults clean;
    VexaBatchTableView table;
    auto font = table.font();
    font.setPointSizeF(GetParam() * QFontInfo(font).pointSizeF());
    table.setFont(font);
    setUp(table);
    font.setBold(true); // as in the row in progress
    const QFontMetrics metrics(font);
    auto* header = dynamic_cast<VexaBatchTableHeader*>(table.horizontalHeader());
    const auto room = [&](int column) { return header->columnWidth(column); };
    EXPECT_GE(room(0), metrics.horizontalAdvance(u"999999999"_s) + BatchRowDelegate::signWidth);
    EXPECT_GE(room(2), metrics.horizontalAdvance(u"00:00:00:00"_s));
    EXPECT_GE(room(3), metrics.horizontalAdvance(u"00:00:00:00"_s));
    EXPECT_GE(room(4), metrics.horizontalAdvance(u"30 fps"_s));
}

INSTANTIATE_TEST_SUITE_P(Fonts, FontScale, testing::Values(1, 2, 3));

TEST(TableWidths, OnesThatMakeNoSenseAreBounded) {
    const CleanDefaults clean;
    {
        QSettings settings(QSettings::IniFormat, QSettings::UserScope, u"vexa-remote"_s,
                           u"vexa-remote"_s);
        settings.setValue(u"columnwidth/vexareel"_s, -5);
        settings.setValue(u"columnwidth/vexastop"_s, 1e12);
        settings.setValue(u"columnwidth/vexastart"_s, u"wide"_s);
    }
    VexaBatchTableView table;
    setUp(table);
    auto* header = table.horizontalHeader();
    EXPECT_EQ(header->sectionSize(0), header->minimumSectionSize());
    EXPECT_EQ(header->sectionSize(3), 4000);
    EXPECT_EQ(header->sectionSize(2), header->minimumSectionSize());
}

TEST_F(TableView, TypingFindsATitle) {
    list.addItemWithReel(9, u"Overture"_s, {0, 0, 0, 0});
    table.reloadData();
    table.moveKeyboardTo({0});
    table.keyboardSearch(u"ov"_s);
    EXPECT_EQ(table.onlySelectedRow(), 3u);
}

TEST_F(TableView, ShowsDurationsWhereTheOperatorWantsThem) {
    const CleanDefaults clean;
    list.batchList()[0]->stop = 0x00010203;
    const int columns = table.model()->columnCount();
    const int width = table.columnWidth(2);
    click(1);
    table.setShowsDurations(true);
    ASSERT_EQ(table.model()->columnCount(), columns + 1);
    EXPECT_EQ(table.model()->headerData(columns, Qt::Horizontal).toString(), u"Duration"_s);
    EXPECT_EQ(table.model()->index(0, columns).data().toString(), u"1:02"_s);
    EXPECT_FALSE(table.model()->flags(table.model()->index(0, columns)) & Qt::ItemIsEditable);
    EXPECT_EQ(table.onlySelectedRow(), 1u);
    EXPECT_EQ(table.columnWidth(2), width);

    VexaBatchTableView another;
    setUp(another);
    EXPECT_EQ(another.model()->columnCount(), columns + 1);
    table.setShowsDurations(false);
    EXPECT_EQ(table.model()->columnCount(), columns);
}

TEST_F(TableView, KnowsTheOnlySelectedRow) {
    EXPECT_EQ(table.onlySelectedRow(), std::nullopt);
    click(1);
    EXPECT_EQ(table.onlySelectedRow(), 1u);
    click(2, Qt::ControlModifier);
    EXPECT_EQ(table.onlySelectedRow(), std::nullopt);
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
