#include "controls/BatchTableModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct TableModel : testing::Test {
    TableModel() {
        model.setColumnIdentifiers({item_key::reel, item_key::title, item_key::start,
                                    item_key::stop, item_key::rate, item_key::type});
        list.addItemWithReel(12, QStringLiteral("First"), {0x01020304, 0, 1, 2});
        list.addItemWithReel(13, QStringLiteral("Second"), {0, 0, 99, 0});
        model.reloadData();
    }
    QString text(int row, int column) { return model.index(row, column).data().toString(); }

    VexaBatchStripeData list{nullptr};
    BatchTableModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(TableModel, ShowsAnItemARowByTheColumnsIdentifiers) {
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.columnCount(), 6);
    const QStringList first{u"12"_s,          u"First"_s,  u"01:02:03:04"_s,
                            u"00:00:00:00"_s, u"25 fps"_s, u"FSK"_s};
    for (int column = 0; column < 6; ++column)
        EXPECT_EQ(text(0, column), first[column]) << column;
    EXPECT_EQ(text(1, 4), u"30 fps"_s);
    EXPECT_EQ(text(1, 5), u"MTC"_s);
}

TEST_F(TableModel, TitlesTheColumns) {
    const QStringList titles{u"Reel"_s, u"Title"_s, u"Start"_s, u"Stop"_s, u"Rate"_s, u"Sync"_s};
    for (int column = 0; column < 6; ++column)
        EXPECT_EQ(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                  titles[column]);
}

TEST_F(TableModel, OnlyTitlesCanBeEdited) {
    for (int column = 0; column < 6; ++column) {
        const auto cell = model.index(0, column);
        EXPECT_EQ(model.flags(cell).testFlag(Qt::ItemIsEditable), column == 1) << column;
        EXPECT_EQ(model.setData(cell, u"9"_s, Qt::EditRole), column == 1) << column;
    }
    EXPECT_EQ(text(0, 1), u"9"_s);
    EXPECT_EQ(list.batchList()[0]->title, u"9"_s);
    EXPECT_EQ(list.batchList()[0]->reel, 12u);
}

TEST_F(TableModel, LineBreaksInTitlesAreSpaces) {
    const auto title = model.index(0, 1);
    model.setData(title, u"two\nlines"_s, Qt::EditRole);
    EXPECT_EQ(list.batchList()[0]->title, u"two lines"_s);

    list.batchList()[0]->title = u"from\r\na file"_s;
    EXPECT_EQ(title.data().toString(), u"from a file"_s);
    EXPECT_EQ(title.data(Qt::EditRole).toString(), u"from a file"_s);
    model.setData(title, u"from a file"_s, Qt::EditRole);
    EXPECT_EQ(list.batchList()[0]->title, u"from\r\na file"_s) << "nothing was edited";
}

TEST_F(TableModel, AnEditedTitleLeavesItsRowWhereItIs) {
    list.addItemWithReel(12, u"Fourth"_s, {0x01020304, 0, 1, 2});
    model.reloadData();
    ASSERT_EQ(text(1, 1), u"Fourth"_s);
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.setData(model.index(0, 1), u"Zero"_s, Qt::EditRole);
    EXPECT_EQ(text(0, 1), u"Zero"_s);
    EXPECT_EQ(text(1, 1), u"Fourth"_s);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(TableModel, AListThatChangedShowsAtTheNextReload) {
    list.clearBatchList();
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(text(0, 1), QString());
    EXPECT_FALSE(model.setData(model.index(0, 1), u"gone"_s, Qt::EditRole));
    model.reloadData();
    EXPECT_EQ(model.rowCount(), 0);
    list.addItemWithReel(1, u"new"_s, {0, 0, 0, 0});
    model.reloadData();
    EXPECT_EQ(text(0, 1), u"new"_s);
}

TEST_F(TableModel, EqualRowsHaveMarksOfTheirOwn) {
    list.addItem(list.batchList()[0]); // as undoing a command can
    model.reloadData();
    ASSERT_EQ(*list.batchList()[0], *list.batchList()[1]);
    const auto mark = [this](int row) {
        return model.index(row, 0).data(BatchTableModel::markRole).toInt();
    };
    model.markItem(list.batchList()[0], StripeMark::finished);
    model.markItem(list.batchList()[1], StripeMark::underWay);
    EXPECT_EQ(mark(0), int(StripeMark::finished));
    EXPECT_EQ(mark(1), int(StripeMark::underWay));
    model.markItem(list.batchList()[1], StripeMark::none);
    EXPECT_EQ(mark(0), int(StripeMark::finished));
    EXPECT_EQ(mark(1), int(StripeMark::none));
}

TEST_F(TableModel, MarksStayWithTheirItems) {
    const auto marked = list.batchList()[0];
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.markItem(marked, StripeMark::underWay);
    EXPECT_EQ(changes.count(), 1);
    const auto mark = [&](int row) {
        return static_cast<StripeMark>(model.index(row, 0).data(BatchTableModel::markRole).toInt());
    };
    EXPECT_EQ(mark(0), StripeMark::underWay);
    EXPECT_EQ(mark(1), StripeMark::none);

    list.addItemWithReel(1, u"before"_s, {0, 0, 0, 0});
    model.reloadData();
    EXPECT_EQ(mark(0), StripeMark::none);
    EXPECT_EQ(mark(1), StripeMark::underWay);
    EXPECT_EQ(model.indexOfItem(marked).row(), 1);
    EXPECT_EQ(model.index(1, 3).data(Qt::AccessibleDescriptionRole).toString(), u"Under way"_s);
    model.markItem(marked, StripeMark::finished);
    EXPECT_EQ(model.index(1, 0).data(Qt::AccessibleDescriptionRole).toString(), u"Finished"_s);

    list.removeItem(marked);
    model.reloadData();
    model.markItem(marked, StripeMark::finished);
    EXPECT_FALSE(model.indexOfItem(marked).isValid());
    list.addItem(marked);
    model.reloadData();
    EXPECT_EQ(mark(1), StripeMark::finished) << "the same item, brought back";
    model.clearMarks();
    EXPECT_EQ(mark(1), StripeMark::none);
}

TEST(TableModelWithoutAList, IsEmpty) {
    BatchTableModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setColumnIdentifiers({item_key::title});
    model.reloadData();
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace
