#include "interchange/edit_list_reader.h"
#include "interchange/printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr ReadingOptions sourceTimes{rate::fps24, sync::mtc, EditTimes::source};
constexpr ReadingOptions recordTimes{rate::fps24, sync::mtc, EditTimes::record};

const QString cuts =
    u"TITLE:   Evening\r\n\r\n"
    "001  TAPE7    V     C        01:00:04:05 01:00:05:12 00:00:00:00 00:00:01:07\r\n"
    "* FROM CLIP NAME:  Opening\r\n"
    "* SOURCE FILE: opening.mov\r\n"
    "002  AX       AA/V  D    024 04:00:00:00 04:00:02:00 00:00:01:07 00:00:03:07\r\n"
    "* FROM CLIP NAME: Opening\r\n"
    "* TO CLIP NAME: Street\r\n"
    "M2   AX       024.0                04:00:00:00\r\n"_s;

TEST(EditList, HasARowForEachEdit) {
    const auto read = readEditList(cuts, sourceTimes);
    EXPECT_THAT(rowTexts(read), ElementsAre("3: 7 Opening 01:00:04:05-01:00:05:12 24 fps MTC",
                                            "6: 1 Street 04:00:00:00-04:00:02:00 24 fps MTC"));
    EXPECT_THAT(read.refused, IsEmpty());
    EXPECT_TRUE(read.assumedRate);
}

TEST(EditList, HasTheTimesOfTheProgrammeAsWell) {
    EXPECT_THAT(rowTexts(readEditList(cuts, recordTimes)),
                ElementsAre("3: 7 Opening 00:00:00:00-00:00:01:07 24 fps MTC",
                            "6: 1 Street 00:00:01:07-00:00:03:07 24 fps MTC"));
}

TEST(EditList, TellsDropFrameByItsModeOrItsTimes) {
    const auto read = readEditList(u"FCM: DROP FRAME\n"
                                   "001 1 V C 01:00:00:02 01:00:05:00 00:00:00:00 00:00:01:00\n"
                                   "FCM: NON-DROP FRAME\n"
                                   "002 2 V C 01:00:00:02 01:00:05:00 00:00:00:00 00:00:01:00\n"
                                   "003 3 V C 01:00:00;02 01:00:05;00 00:00:00;00 00:00:01;00\n"_s,
                                   sourceTimes);
    EXPECT_THAT(rowTexts(read), ElementsAre("2: 1 1 01:00:00:02-01:00:05:00 30 df MTC",
                                            "4: 2 2 01:00:00:02-01:00:05:00 24 fps MTC",
                                            "5: 3 3 01:00:00:02-01:00:05:00 30 df MTC"));
    EXPECT_TRUE(read.assumedRate);
}

TEST(EditList, NamesEditsThatCanBeNoRow) {
    const auto read = readEditList(u"001 BL V C 00:00:00:00 00:00:05:00 00:00:00:00 00:00:05:00\n"
                                   "002 1 V C 00:00:00:00 00:00:00:00 00:00:00:00 00:00:00:00\n"
                                   "003 1 V C 00:00:00:00 00:00:00:00\n"
                                   "004 1 V C 00:00:00:24 00:00:05:00 00:00:00:00 00:00:05:00\n"
                                   "005\n"_s,
                                   sourceTimes);
    EXPECT_THAT(
        refusalTexts(read),
        ElementsAre("1: 001 BL V C 00:00:00:00 00:00:05:00 00:00:00:00 00:00:05:00: black, from no "
                    "reel",
                    "2: 002 1 V C 00:00:00:00 00:00:00:00 00:00:00:00 00:00:00:00: no length",
                    "3: 003 1 V C 00:00:00:00 00:00:00:00: an edit has four times",
                    "4: 004 1 V C 00:00:00:24 00:00:05:00 00:00:00:00 00:00:05:00: start time: no "
                    "frame 24 at 24 fps"));
    EXPECT_THAT(read.rows, IsEmpty());
}

TEST(EditList, IsToldByItsBeginning) {
    EXPECT_TRUE(isEditList(cuts));
    EXPECT_TRUE(isEditList(u"\n\nFCM: NON-DROP FRAME\n"));
    EXPECT_TRUE(isEditList(u"001 1 V C 00:00:00:00 00:00:05:00 00:00:00:00 00:00:05:00"));
    EXPECT_FALSE(isEditList(u"Reel,Title,Start,Stop\n"));
    EXPECT_FALSE(isEditList(u"1\tPart one\t01:00:00:00\t01:10:00:00\n"));
    EXPECT_FALSE(isEditList(u""));
}

TEST(EditList, IsRefusedAsAWholeWhereItIsLongerThanAListMayBe) {
    const auto read = readEditList(u"1 1\n"_s.repeated(mostRows + 1), sourceTimes);
    EXPECT_EQ(read.fault, u"there are more than 500000 rows"_s);
}

} // namespace
