#include "generator/running_time.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

/// The first nanosecond of a frame.
std::chrono::nanoseconds afterFrames(std::uint64_t frames, const FrameRate& rate) {
    const auto nanoseconds = frames * rate.seconds * 1'000'000'000;
    return std::chrono::nanoseconds((nanoseconds + rate.frames - 1) / rate.frames);
}

struct Run {
    const char* from;
    std::uint64_t rate;
    std::uint64_t frames;
    const char* to;
};

class RunningTimeOf : public testing::TestWithParam<Run> {};

TEST_P(RunningTimeOf, CountsRealTimeAtTheRate) {
    const auto& [from, rateCode, frames, to] = GetParam();
    const auto& frameRate = frameRateForCode(rateCode);
    RunningTime time(timecodeFromText(from).value(), frameRate);
    const auto due = afterFrames(frames, frameRate);
    EXPECT_NE(timecodeText(time.at(due - std::chrono::nanoseconds(1))), to);
    EXPECT_EQ(timecodeText(time.at(due)), to);
}

INSTANTIATE_TEST_SUITE_P(Rates, RunningTimeOf,
                         testing::Values(Run{"00:00:00:00", rate::fps24, 1, "00:00:00:01"},
                                         Run{"00:59:59:23", rate::fps24, 1, "01:00:00:00"},
                                         Run{"23:59:59:24", rate::fps25, 1, "00:00:00:00"},
                                         Run{"10:00:00:00", rate::fps30, 108000, "11:00:00:00"},
                                         Run{"00:00:59:29", rate::fps30Drop, 1, "00:01:00:02"},
                                         Run{"00:09:59:29", rate::fps30Drop, 1, "00:10:00:00"},
                                         // An hour of drop-frame skips 108 numbers.
                                         Run{"10:00:00:00", rate::fps30Drop, 107892,
                                             "11:00:00:00"}));

TEST(RunningTime, DoesNotGoBack) {
    RunningTime time({}, frameRateForCode(rate::fps30));
    EXPECT_EQ(timecodeText(time.at(std::chrono::seconds(-1))), "00:00:00:00");
    EXPECT_EQ(timecodeText(time.at(std::chrono::seconds(2))), "00:00:02:00");
    EXPECT_EQ(timecodeText(time.at(std::chrono::seconds(1))), "00:00:02:00");
}

} // namespace
