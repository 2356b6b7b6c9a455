#include "interchange/delimited_rows.h"
#include "interchange/printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr ReadingOptions options{rate::fps25, sync::dtl};

ReadRows read(const QString& text) { return readDelimitedRows(text, options); }

TEST(DelimitedRows, StandInTheOrderOfTheTableWithoutAHeader) {
    const auto rows = read(u"1,Part one,01:00:00:00,01:10:00:00,24 fps,MTC\n"
                           "2,Part two,02:00:00:00,02:10:00:00,29.97,fsk\n"_s);
    EXPECT_THAT(rowTexts(rows), ElementsAre("1: 1 Part one 01:00:00:00-01:10:00:00 24 fps MTC",
                                            "2: 2 Part two 02:00:00:00-02:10:00:00 30 df FSK"));
    EXPECT_THAT(rows.refused, IsEmpty());
    EXPECT_FALSE(rows.assumedRate);
    EXPECT_FALSE(rows.assumedType);
}

TEST(DelimitedRows, StandWhereTheHeaderSays) {
    const auto rows = read(u"Notes;TC Out;TC In;Clip name;FPS;Tape;Sync type\n"
                           "x;01:10:00:00;01:00:00:00;Part one;25;7;FSK\n"_s);
    EXPECT_THAT(rowTexts(rows), ElementsAre("2: 7 Part one 01:00:00:00-01:10:00:00 25 fps FSK"));
}

TEST(DelimitedRows, TakeWhatIsNotToldFromTheOptions) {
    const auto rows = read(u"Title,Start,Stop\nPart one,03:00:00:00,03:10:00:00\n"_s);
    EXPECT_THAT(rowTexts(rows), ElementsAre("2: 3 Part one 03:00:00:00-03:10:00:00 25 fps DTL"));
    EXPECT_TRUE(rows.assumedRate);
    EXPECT_TRUE(rows.assumedType);
    EXPECT_THAT(rowTexts(read(u"Start,Stop\n03:00:00:00,03:10:00:00\n"_s)),
                ElementsAre("2: 3 untitled 03:00:00:00-03:10:00:00 25 fps DTL"));
}

TEST(DelimitedRows, TellDropFrameByASemicolonBeforeTheFrames) {
    const auto rows = read(u"1\tPart one\t01:00:00;02\t01:10:00;00\n"_s);
    EXPECT_THAT(rowTexts(rows), ElementsAre("1: 1 Part one 01:00:00:02-01:10:00:00 30 df DTL"));
    EXPECT_FALSE(rows.assumedRate);
}

TEST(DelimitedRows, AreFoundBetweenTheDelimiterThatMakesSense) {
    const auto one = "1: 1 a, b, c; d 01:00:00:00-01:10:00:00 25 fps MTC";
    EXPECT_THAT(rowTexts(read(u"1\ta, b, c; d\t01:00:00:00\t01:10:00:00\t25\tMTC\n"_s)),
                ElementsAre(one));
    EXPECT_THAT(rowTexts(read(u"1;\"a, b, c; d\";01:00:00:00;01:10:00:00;25;MTC\n"_s)),
                ElementsAre(one));
    EXPECT_THAT(rowTexts(read(u"1,\"a, b, c; d\",01:00:00:00,01:10:00:00,25,MTC\n"_s)),
                ElementsAre(one));
    EXPECT_THAT(rowTexts(read(u"sep=|\r\n1|a, b, c; d|01:00:00:00|01:10:00:00|25|MTC\r\n"_s)),
                ElementsAre("2: 1 a, b, c; d 01:00:00:00-01:10:00:00 25 fps MTC"));
}

TEST(DelimitedRows, PassOverEmptyOnes) {
    const auto rows = read(u"\n;;;;;\n ; \n1;a;01:00:00:00;01:10:00:00;25;MTC\n;;;;;\n"_s);
    EXPECT_EQ(rows.rows.size(), 1u);
    EXPECT_THAT(rows.refused, IsEmpty());
    EXPECT_THAT(read({}).rows, IsEmpty());
}

struct RefusedRow {
    const char16_t* line;
    const char* reason;
};

class RefusedRows : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedRows, AreNamedWithAReason) {
    const auto rows =
        read(u"1,a,01:00:00:00,01:10:00:00,25,MTC\n"_s + QString::fromUtf16(GetParam().line) +
             u"\n3,c,03:00:00:00,03:10:00:00,25,MTC\n"_s);
    EXPECT_EQ(rows.rows.size(), 2u);
    ASSERT_EQ(rows.refused.size(), 1u);
    EXPECT_EQ(rows.refused[0].line, 2u);
    EXPECT_EQ(rows.refused[0].reason.toStdString(), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedRows,
    testing::Values(
        RefusedRow{u"My show", "no start time"}, RefusedRow{u"2,b,01:00:00:00", "no stop time"},
        RefusedRow{u"2,b,soon,01:10:00:00", "“soon” is not a time"},
        RefusedRow{u"2,b,01:00:00:25,01:10:00:00,25,MTC", "start time: no frame 25 at 25 fps"},
        RefusedRow{u"2,b,01:00:00:00,24:10:00:00,25,MTC", "stop time: no hour 24"},
        RefusedRow{u"2,b,01:01:00:00,01:10:00:00,29.97,MTC",
                   "start time: no frame 0 in second 0 of minute 1 at 30 df"},
        RefusedRow{u"two,b,01:00:00:00,01:10:00:00,25,MTC", "“two” is not a reel number"},
        RefusedRow{u"2,b,01:00:00:00,01:10:00:00,23.976,MTC",
                   "“23.976” is not a frame rate that can be striped"},
        RefusedRow{u"2,b,01:00:00:00,01:10:00:00,25,LTC", "“LTC” is not a sync type"}));

TEST(DelimitedRows, ShowTheBeginningOfALineThatIsRefused) {
    const auto rows = read(u"a\t"_s + QString(100'000, u'x') + u"\n"_s);
    ASSERT_EQ(rows.refused.size(), 1u);
    EXPECT_TRUE(rows.refused[0].text.startsWith(u"a | xxx"_s));
    EXPECT_LE(rows.refused[0].text.size(), 210);
}

TEST(DelimitedRows, MayEndBeforeTheyStart) {
    EXPECT_EQ(read(u"1,a,02:00:00:00,01:00:00:00,25,MTC"_s).rows.size(), 1u);
}

TEST(DelimitedRows, AreRefusedAsAWholeWhereTheyAreMoreThanAListMayHave) {
    const auto rows = read(u"x\n"_s.repeated(mostRows + 1));
    EXPECT_EQ(rows.fault, u"there are more than 500000 rows"_s);
    EXPECT_THAT(rows.refused, IsEmpty());
}

TEST(DelimitedRows, HaveFormulasForTitles) {
    EXPECT_EQ(read(u"1,'=1+1,01:00:00:00,01:10:00:00\n"_s).rows.at(0).title, u"=1+1"_s);
    EXPECT_EQ(read(u"1,=1+1,01:00:00:00,01:10:00:00\n"_s).rows.at(0).title, u"=1+1"_s);
}

} // namespace
