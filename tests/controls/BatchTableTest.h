#pragma once

#include "controls/VexaBatchTableView.h"
#include "support/CleanDefaults.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace vexa::test {

inline void setUp(VexaBatchTableView& table) {
    table.setColumnIdentifiers({item_key::reel, item_key::title, item_key::start, item_key::stop,
                                item_key::rate, item_key::type});
    table.installHeader();
    table.setIntercellSpacing(5.0, 2.0);
    table.resize(760, 300);
}

/// A table of three rows, in its own window.
struct BatchTableTest : testing::Test {
    BatchTableTest() {
        setUp(table);
        addRows(3);
        table.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&table));
    }
    void addRows(std::uint64_t count) {
        for (std::uint64_t row = 0; row < count; ++row)
            list.addItemWithReel(list.numItems(), QStringLiteral("item"), {0, 0, 0, 0});
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

} // namespace vexa::test
