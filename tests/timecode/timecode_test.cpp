#include "timecode/timecode.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace vexa;

namespace vexa {
void PrintTo(const Timecode& time, std::ostream* out) { *out << timecodeText(time); }
} // namespace vexa

namespace {

Timecode tc(const char* text) { return timecodeFromText(text).value(); }

struct RefusedTime {
    const char* text;
    std::uint64_t rate;
    const char* refusal;
};

class Refusal : public testing::TestWithParam<RefusedTime> {};

TEST_P(Refusal, NamesTheFirstFieldThatIsAtFault) {
    EXPECT_EQ(refusal(tc(GetParam().text), frameRateForCode(GetParam().rate)), GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(
    Times, Refusal,
    testing::Values(RefusedTime{"23:59:59:29", rate::fps30, ""},
                    RefusedTime{"24:60:60:60", rate::fps30, "no hour 24"},
                    RefusedTime{"00:60:60:60", rate::fps30, "no minute 60"},
                    RefusedTime{"00:00:60:60", rate::fps30, "no second 60"},
                    RefusedTime{"00:00:59:59", rate::fps25, "no frame 59 at 25 fps"},
                    RefusedTime{"00:00:00:24", rate::fps24, "no frame 24 at 24 fps"},
                    RefusedTime{"00:01:00:00", rate::fps30Drop,
                                "no frame 0 in second 0 of minute 1 at 30 df"},
                    RefusedTime{"00:10:00:00", rate::fps30Drop, ""}));

TEST(Timecode, PacksHoursHighestAsPlainBinary) {
    EXPECT_EQ(pack({1, 2, 3, 4}), 0x01020304u);
    EXPECT_EQ(pack({23, 59, 59, 29}), 0x173B3B1Du);
    EXPECT_EQ(pack({1, 0, 0, 0}), 16777216u);
    EXPECT_EQ(pack({0, 59, 58, 29}), 3881501u);
    EXPECT_EQ(unpack(0x01020304u), (Timecode{1, 2, 3, 4}));
    EXPECT_EQ(unpack(0x173B3B1Du), (Timecode{23, 59, 59, 29}));
    EXPECT_EQ(unpack(0xFFFFFFFFu), (Timecode{255, 255, 255, 255}));
}

TEST(Timecode, PackedValuesCompareAsTimes) {
    EXPECT_LT(pack(tc("00:59:59:29")), pack(tc("01:00:00:00")));
    EXPECT_LT(pack(tc("01:00:00:29")), pack(tc("01:00:01:00")));
}

TEST(Timecode, PrintsTwoDigitsAField) {
    EXPECT_EQ(timecodeText({1, 2, 3, 4}), "01:02:03:04");
    EXPECT_EQ(timecodeText({23, 0, 0, 0}), "23:00:00:00");
    EXPECT_EQ(timecodeText(Timecode{}), "00:00:00:00");
    EXPECT_EQ(timecodeText({0, 0, 0, 99}), "00:00:00:99");
}

TEST(Timecode, PrintsAPackedTimeWithoutTheBitsAboveIt) {
    EXPECT_EQ(timecodeText(0x01020304), "01:02:03:04");
    EXPECT_EQ(timecodeText(0xFF'17000000), "23:00:00:00");
}

TEST(Timecode, PrintsAFieldOver99WithACharacterBeyond9) {
    EXPECT_EQ(timecodeText({0, 0, 0, 100}), "00:00:00::0");
    EXPECT_EQ(timecodeText({255, 0, 0, 0}), "I5:00:00:00");
}

TEST(Timecode, ReadsExactlyItsOwnForm) {
    EXPECT_EQ(timecodeFromText("01:02:03:04"), (Timecode{1, 2, 3, 4}));
    EXPECT_EQ(timecodeFromText("99:99:99:99"), (Timecode{99, 99, 99, 99}));
    for (const char* text : {"", "1:02:03:04", "01:02:03", "01:02:03:04 ", "01:02:03;04",
                             "01-02-03-04", "0a:02:03:04", "01:02:03:4:", "+1:02:03:04"})
        EXPECT_EQ(timecodeFromText(text), std::nullopt) << text;
}

struct Step {
    const char* from;
    std::uint64_t frames;
    std::uint64_t rate;
    const char* to;
};

class Advance : public testing::TestWithParam<Step> {};

TEST_P(Advance, CountsByTheRulesOfTheRate) {
    const auto& step = GetParam();
    EXPECT_EQ(advanced(tc(step.from), step.frames, frameRateForCode(step.rate)), tc(step.to))
        << step.from << " + " << step.frames << " at rate code " << step.rate;
}

INSTANTIATE_TEST_SUITE_P(Carries, Advance,
                         testing::Values(Step{"23:59:59:23", 1, rate::fps24, "00:00:00:00"},
                                         Step{"23:59:59:24", 1, rate::fps25, "00:00:00:00"},
                                         Step{"23:59:59:29", 1, rate::fps30, "00:00:00:00"},
                                         Step{"23:59:59:29", 1, rate::fps30Drop, "00:00:00:00"},
                                         Step{"00:59:59:24", 1, rate::fps25, "01:00:00:00"},
                                         Step{"01:00:00:00", 150, rate::fps30, "01:00:05:00"},
                                         Step{"23:59:58:00", 150, rate::fps30, "00:00:03:00"},
                                         Step{"00:00:00:00", 24 * 3600, rate::fps24,
                                              "01:00:00:00"}));

INSTANTIATE_TEST_SUITE_P(
    DropFrame, Advance,
    testing::Values(Step{"00:00:59:29", 1, rate::fps30Drop, "00:01:00:02"},
                    Step{"00:09:59:29", 1, rate::fps30Drop, "00:10:00:00"},
                    Step{"00:01:00:29", 1, rate::fps30Drop, "00:01:01:00"},
                    Step{"00:00:59:29", 1, rate::fps30, "00:01:00:00"},
                    // Dropped numbers are skipped once, after the carries, at any distance.
                    Step{"00:00:00:00", 1800, rate::fps30Drop, "00:01:00:02"},
                    Step{"00:00:00:00", 3600, rate::fps30Drop, "00:02:00:02"}));

INSTANTIATE_TEST_SUITE_P(
    NoFrames, Advance,
    testing::Values(Step{"00:00:00:27", 0, rate::fps25, "00:00:01:02"},
                    Step{"01:00:00:28", 0, rate::fps24, "01:00:01:04"},
                    Step{"00:00:10:29", 0, rate::fps24, "00:00:11:05"},
                    Step{"00:01:00:00", 0, rate::fps30Drop, "00:01:00:02"},
                    Step{"00:01:00:01", 0, rate::fps30Drop, "00:01:00:03"},
                    Step{"00:10:00:01", 0, rate::fps30Drop, "00:10:00:01"},
                    // Only an overflowing field carries: the 24 and the 60 stay.
                    Step{"24:00:00:00", 0, rate::fps30, "24:00:00:00"},
                    Step{"24:60:00:00", 1, rate::fps30, "24:60:00:01"}));

TEST(Timecode, ADayOfDropFrameCountsTheFramesOf2997) {
    const auto& drop = frameRateForCode(rate::fps30Drop);
    Timecode time;
    std::uint64_t frames = 0;
    do {
        time = advanced(time, 1, drop);
        ASSERT_TRUE(isValid(time, drop)) << timecodeText(time);
        ++frames;
    } while (time != Timecode{});
    // 30 per second, less two in each of the nine minutes out of ten that drop them.
    EXPECT_EQ(frames, 30u * 86400 - 2u * 24 * 54);
}

struct Entry {
    const char* text;
    std::uint64_t rate;
    bool valid;
};

class Validity : public testing::TestWithParam<Entry> {};

TEST_P(Validity, HoldsPerFieldAndRate) {
    const auto& entry = GetParam();
    EXPECT_EQ(isValid(tc(entry.text), frameRateForCode(entry.rate)), entry.valid)
        << entry.text << " at rate code " << entry.rate;
}

INSTANTIATE_TEST_SUITE_P(
    Times, Validity,
    testing::Values(
        Entry{"23:59:59:29", rate::fps30, true}, Entry{"24:00:00:00", rate::fps30, false},
        Entry{"00:60:00:00", rate::fps30, false}, Entry{"00:00:60:00", rate::fps30, false},
        Entry{"00:00:00:30", rate::fps30, false}, Entry{"00:00:00:25", rate::fps25, false},
        Entry{"00:00:00:24", rate::fps25, true}, Entry{"00:00:00:24", rate::fps24, false},
        Entry{"00:00:00:23", rate::fps24, true}, Entry{"00:01:00:00", rate::fps30Drop, false},
        Entry{"00:01:00:01", rate::fps30Drop, false}, Entry{"00:01:00:02", rate::fps30Drop, true},
        Entry{"00:10:00:00", rate::fps30Drop, true}, Entry{"00:01:01:00", rate::fps30Drop, true},
        Entry{"00:01:00:00", rate::fps30, true}));

} // namespace
