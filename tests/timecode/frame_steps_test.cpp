#include "timecode/frame_steps.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

TEST(FrameSteps, BeginAtTheFirstSample) {
    const FrameSteps steps(frameRateForCode(rate::fps30Drop), 44100, 1);
    EXPECT_EQ(steps.sample(), 0u);
    EXPECT_EQ(steps.lag(), 0.0);
}

TEST(FrameSteps, FallOnWholeSamplesWhereTheyDivide) {
    FrameSteps steps(frameRateForCode(rate::fps25), 48000, 160);
    for (std::uint64_t step = 0; step < 1000; ++step, steps.advance()) {
        ASSERT_EQ(steps.sample(), 12 * step);
        ASSERT_EQ(steps.lag(), 0.0);
    }
}

TEST(FrameSteps, AreReachedAtTheNextSample) {
    // 1601.6 samples per frame.
    FrameSteps steps(frameRateForCode(rate::fps30Drop), 48000, 1);
    const std::uint64_t samples[] = {0, 1602, 3204, 4805, 6407, 8008};
    const double lags[] = {0.0, 0.4, 0.8, 0.2, 0.6, 0.0};
    for (int i = 0; i < 6; ++i, steps.advance()) {
        EXPECT_EQ(steps.sample(), samples[i]);
        EXPECT_NEAR(steps.lag(), lags[i], 1e-12);
    }
}

class Exactness
    : public testing::TestWithParam<std::tuple<std::uint64_t, std::uint32_t, std::uint32_t>> {};

TEST_P(Exactness, HoldsForAnHour) {
    const auto [rateCode, sampleRate, parts] = GetParam();
    const auto& rate = frameRateForCode(rateCode);
    FrameSteps steps(rate, sampleRate, parts);
    const auto count = std::uint64_t{3600} * 30 * parts;
    for (std::uint64_t step = 0; step < count; ++step)
        steps.advance();
    const auto divisor = rate.frames * parts;
    const auto exact = count * sampleRate * rate.seconds;
    EXPECT_EQ(steps.sample(), (exact + divisor - 1) / divisor);
    EXPECT_NEAR(steps.lag(),
                static_cast<double>(steps.sample() * divisor - exact) /
                    static_cast<double>(divisor),
                1e-12);
}

INSTANTIATE_TEST_SUITE_P(RatesAndClocks, Exactness,
                         testing::Combine(testing::Range<std::uint64_t>(0, rate::count),
                                          testing::Values(8000, 44100, 48000, 192000),
                                          testing::Values(1, 4, 160)));

} // namespace
