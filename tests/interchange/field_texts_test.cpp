#include "interchange/field_texts.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

#include <QString>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct TimeCase {
    const char16_t* text;
    const char* time; ///< null if none
    bool isDropFrame = false;
};

class WrittenTimes : public testing::TestWithParam<TimeCase> {};

TEST_P(WrittenTimes, AreRead) {
    const auto [text, time, isDropFrame] = GetParam();
    const auto written = timeFromText(text);
    ASSERT_EQ(written.has_value(), time != nullptr);
    if (!written)
        return;
    EXPECT_EQ(timecodeText(written->time), time);
    EXPECT_EQ(written->isDropFrame, isDropFrame);
}

INSTANTIATE_TEST_SUITE_P(
    All, WrittenTimes,
    testing::Values(TimeCase{u"01:02:03:04", "01:02:03:04"}, TimeCase{u"1:2:3:4", "01:02:03:04"},
                    TimeCase{u"  01:02:03:04\t", "01:02:03:04"},
                    TimeCase{u"01:02:03;04", "01:02:03:04", true},
                    TimeCase{u"01;02;03;04", "01:02:03:04", true},
                    TimeCase{u"01:02:03.04", "01:02:03:04"}, TimeCase{u"01020304", "01:02:03:04"},
                    TimeCase{u"1020304", "01:02:03:04"}, TimeCase{u"99:99:99:99", "99:99:99:99"},
                    TimeCase{u"01:02:03", nullptr}, TimeCase{u"01.02.03.04", nullptr},
                    TimeCase{u"01:02:03:04:05", nullptr}, TimeCase{u"001:02:03:04", nullptr},
                    TimeCase{u"01:02:03:", nullptr}, TimeCase{u":02:03:04", nullptr},
                    TimeCase{u"", nullptr}, TimeCase{u"7", nullptr},
                    TimeCase{u"123456789", nullptr}, TimeCase{u"01:02:03:0x", nullptr},
                    TimeCase{u"-1:02:03:04", nullptr}, TimeCase{u"٠١:02:03:04", nullptr}));

struct CodeCase {
    const char16_t* text;
    std::optional<std::uint64_t> code;
};

class WrittenRates : public testing::TestWithParam<CodeCase> {};

TEST_P(WrittenRates, AreRead) { EXPECT_EQ(rateFromText(GetParam().text), GetParam().code); }

INSTANTIATE_TEST_SUITE_P(
    All, WrittenRates,
    testing::Values(CodeCase{u"24", rate::fps24}, CodeCase{u"25", rate::fps25},
                    CodeCase{u" 25.00 fps ", rate::fps25}, CodeCase{u"25,0", rate::fps25},
                    CodeCase{u"30", rate::fps30}, CodeCase{u"30 fps", rate::fps30},
                    CodeCase{u"30 NDF", rate::fps30}, CodeCase{u"30 non-drop", rate::fps30},
                    CodeCase{u"30 df", rate::fps30Drop}, CodeCase{u"30DF", rate::fps30Drop},
                    CodeCase{u"30 Drop-Frame", rate::fps30Drop},
                    CodeCase{u"29.97", rate::fps30Drop}, CodeCase{u"29,97", rate::fps30Drop},
                    CodeCase{u"29.97 DF", rate::fps30Drop},
                    CodeCase{u"29.97 fps drop", rate::fps30Drop}, CodeCase{u"29.97 NDF", {}},
                    CodeCase{u"25 df", {}}, CodeCase{u"23.976", {}}, CodeCase{u"60", {}},
                    CodeCase{u"", {}}, CodeCase{u"fps", {}}, CodeCase{u"2", {}},
                    CodeCase{u"25 eggs", {}}, CodeCase{u"30 df 30", {}},
                    CodeCase{u"-25-", rate::fps25}, CodeCase{u"nan", {}}, CodeCase{u"2.5e1", {}}));

TEST(RateFromText, ReadsEveryNameOfTheTable) {
    for (const auto& rate : frameRates)
        EXPECT_EQ(rateFromText(QString::fromUtf8(rate.name)), rate.code);
}

class WrittenReels : public testing::TestWithParam<CodeCase> {};

TEST_P(WrittenReels, AreRead) { EXPECT_EQ(reelFromText(GetParam().text), GetParam().code); }

INSTANTIATE_TEST_SUITE_P(All, WrittenReels,
                         testing::Values(CodeCase{u"7", 7}, CodeCase{u"007", 7},
                                         CodeCase{u" Reel 7 ", 7}, CodeCase{u"#7", 7},
                                         CodeCase{u"No. 12", 12},
                                         CodeCase{u"18446744073709551615", 18446744073709551615u},
                                         CodeCase{u"18446744073709551616", {}}, CodeCase{u"-7", {}},
                                         CodeCase{u"7a", {}}, CodeCase{u"A1B2", {}},
                                         CodeCase{u"1.5", {}}, CodeCase{u"", {}},
                                         CodeCase{u"seven", {}}));

TEST(WrittenSyncTypes, AreReadByName) {
    EXPECT_EQ(syncTypeFromText(u"MTC"), sync::mtc);
    EXPECT_EQ(syncTypeFromText(u" dtl "), sync::dtl);
    EXPECT_EQ(syncTypeFromText(u"Fsk"), sync::fsk);
    EXPECT_EQ(syncTypeFromText(u"LTC"), std::nullopt);
    EXPECT_EQ(syncTypeFromText(u""), std::nullopt);
}

} // namespace
