#include "timecode/frame_rate.h"

#include <gtest/gtest.h>

using namespace vexa;

struct RateCase {
    std::uint64_t code;
    const char* name;
    double count;
    double interval;
    bool drop;
    std::uint64_t frames;
    std::uint64_t seconds;
};

class FrameRateTable : public testing::TestWithParam<RateCase> {};

TEST_P(FrameRateTable, GivesTheConstantsOfTheCode) {
    const auto& expected = GetParam();
    const auto& rate = frameRateForCode(expected.code);
    EXPECT_EQ(rate.name, expected.name);
    EXPECT_EQ(rate.frameCount, expected.count);
    EXPECT_EQ(rate.frameInterval, expected.interval);
    EXPECT_EQ(rate.dropFrame, expected.drop);
    EXPECT_EQ(rate.frames, expected.frames);
    EXPECT_EQ(rate.seconds, expected.seconds);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, FrameRateTable,
    testing::Values(RateCase{0, "24 fps", 24.0, 1.0 / 24, false, 24, 1},
                    RateCase{1, "25 fps", 25.0, 1.0 / 25, false, 25, 1},
                    RateCase{2, "30 fps", 30.0, 1.0 / 30, false, 30, 1},
                    RateCase{3, "30 df", 30.0, 0.033366700033366704, true, 30000, 1001},
                    RateCase{rate::count, "30 fps", 30.0, 1.0 / 30, false, 30, 1},
                    RateCase{UINT64_MAX, "30 fps", 30.0, 1.0 / 30, false, 30, 1}));

TEST(FrameRate, NoNameHasMoreLettersThanTheLongest) {
    for (const auto& rate : frameRates)
        EXPECT_LE(rate.name.size(), longestRateName().size());
}

TEST(FrameRate, TheDropFrameIntervalIsThatOf2997) {
    EXPECT_DOUBLE_EQ(frameRateForCode(rate::fps30Drop).frameInterval, 1 / 29.97);
}
