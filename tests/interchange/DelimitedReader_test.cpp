#include "interchange/DelimitedReader.h"

#include <QStringList>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using namespace vexa;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

using Rows = std::vector<QStringList>;

Rows rowsOf(const QString& text, QChar delimiter = u',') {
    DelimitedReader reader(text, delimiter);
    Rows rows;
    while (reader.next()) {
        rows.emplace_back();
        for (const auto cell : reader.cells())
            rows.back() += cell.toString();
    }
    return rows;
}

TEST(DelimitedReader, TakesCellsBetweenDelimiters) {
    EXPECT_EQ(rowsOf(u"a,b,,c d"_s), (Rows{{u"a"_s, u"b"_s, {}, u"c d"_s}}));
    EXPECT_EQ(rowsOf(u"a;b,c"_s, u';'), (Rows{{u"a"_s, u"b,c"_s}}));
}

TEST(DelimitedReader, EndsLinesAsAnySystemDoes) {
    const Rows expected{{u"a"_s}, {u"b"_s}};
    EXPECT_EQ(rowsOf(u"a\nb"_s), expected);
    EXPECT_EQ(rowsOf(u"a\r\nb\r\n"_s), expected);
    EXPECT_EQ(rowsOf(u"a\rb\r"_s), expected);
}

TEST(DelimitedReader, HasNoRowInNoText) { EXPECT_TRUE(rowsOf({}).empty()); }

TEST(DelimitedReader, HasAnEmptyCellInAnEmptyLineAndAfterADelimiter) {
    EXPECT_EQ(rowsOf(u"\na,"_s), (Rows{{QString()}, {u"a"_s, QString()}}));
}

TEST(DelimitedReader, KeepsWhatStandsInQuotes) {
    EXPECT_EQ(rowsOf(u"\"a,b\",\"two\r\nlines\",\"say \"\"hm\"\"\",\"\"\"\",\"\""_s),
              (Rows{{u"a,b"_s, u"two\r\nlines"_s, u"say \"hm\""_s, u"\""_s, {}}}));
}

TEST(DelimitedReader, TakesQuotesInsideACellForLetters) {
    EXPECT_EQ(rowsOf(u"12\" reel,b\"\""_s), (Rows{{u"12\" reel"_s, u"b\"\""_s}}));
}

TEST(DelimitedReader, TakesWhatFollowsTheClosingQuoteAsWell) {
    EXPECT_EQ(rowsOf(u"\"a\"b,c"_s), (Rows{{u"ab"_s, u"c"_s}}));
    EXPECT_EQ(rowsOf(u"\"a\"b\"c\",d"_s), (Rows{{u"ab\"c\""_s, u"d"_s}}));
}

TEST(DelimitedReader, TakesTheRestWhereAQuoteIsNeverClosed) {
    EXPECT_EQ(rowsOf(u"a,\"b,c\nd"_s), (Rows{{u"a"_s, u"b,c\nd"_s}}));
}

TEST(DelimitedReader, CountsLinesAlsoInQuotes) {
    DelimitedReader reader(u"a\n\"two\r\nlines\"\r\n\nb"_s, u',');
    std::vector<std::size_t> lines;
    while (reader.next())
        lines.push_back(reader.line());
    EXPECT_THAT(lines, ElementsAre(1, 2, 4, 5));
}

TEST(DelimitedReader, PassesOverCellsBeyondAnyUse) {
    DelimitedReader reader(QString(100'000, u',') + u"\nb"_s, u',');
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.cells().size(), DelimitedReader::mostCells);
    ASSERT_TRUE(reader.next());
    EXPECT_EQ(reader.cells().front(), u"b");
}

} // namespace
