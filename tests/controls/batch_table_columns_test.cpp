#include "controls/BatchTableTest.h"
#include "controls/VexaBatchTableHeader.h"
#include "timecode/frame_rate.h"

#include <QSettings>
#include <QTest>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

using TableView = BatchTableTest;

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
    for (const auto& rate : frameRates)
        EXPECT_GE(room(4), metrics.horizontalAdvance(QString::fromUtf8(rate.name)));
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

} // namespace
