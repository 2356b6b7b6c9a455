#include "generator/generator_state.h"
#include "timecode/sync_type.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vexa;
using Phase = GeneratorState::Phase;

namespace {

const Moment zero{std::chrono::hours(100)};

/// The first moment at which so many frames have passed.
Moment afterFrames(std::uint64_t frames, std::uint64_t rateCode) {
    const double seconds = static_cast<double>(frames) * frameRateForCode(rateCode).frameInterval;
    return zero + std::chrono::nanoseconds(static_cast<std::int64_t>(std::ceil(seconds * 1e9)));
}

SetupFrame setup(const char* time, std::uint64_t sync, std::optional<std::uint64_t> rate) {
    return {timecodeFromText(time).value(), {sync, rate}};
}

StartFrame start(const char* time) { return {timecodeFromText(time).value()}; }

TEST(GeneratorState, RunsFromSetupAndStartUntilStop) {
    GeneratorState state;
    EXPECT_EQ(state.phase(), Phase::Stopped);
    EXPECT_EQ(state.status(zero), "stopped");

    EXPECT_EQ(state.take(StopFrame{}, zero), "stop");
    EXPECT_EQ(state.take(setup("01:00:00:00", sync::dtl, rate::fps25), zero),
              "setup 01:00:00:00 25 fps DTL");
    EXPECT_EQ(state.phase(), Phase::SetUp);
    EXPECT_EQ(state.status(zero), "set up 01:00:00:00 25 fps DTL");

    EXPECT_EQ(state.take(start("01:00:00:00"), zero), "start 01:00:00:00");
    EXPECT_EQ(state.phase(), Phase::Running);
    EXPECT_EQ(state.status(zero), "running 01:00:00:00 25 fps DTL");
    EXPECT_EQ(state.status(afterFrames(37, rate::fps25)), "running 01:00:01:12 25 fps DTL");

    EXPECT_EQ(state.take(StopFrame{}, afterFrames(50, rate::fps25)), "stop at 01:00:02:00");
    EXPECT_EQ(state.phase(), Phase::Stopped);
    EXPECT_EQ(state.status(afterFrames(60, rate::fps25)), "stopped");
    EXPECT_EQ(state.take(StopFrame{}, afterFrames(61, rate::fps25)), "stop");
}

struct Run {
    const char* from;
    std::uint64_t rate;
    std::uint64_t frames;
    const char* to;
};

class RunningTime : public testing::TestWithParam<Run> {};

TEST_P(RunningTime, CountsRealTimeAtTheRate) {
    const auto& [from, rateCode, frames, to] = GetParam();
    GeneratorState state;
    state.take(setup(from, sync::mtc, rateCode), zero);
    state.take(start(from), zero);
    const auto due = afterFrames(frames, rateCode);
    const auto before = state.status(due - std::chrono::microseconds(1));
    EXPECT_NE(state.status(due), before);
    EXPECT_EQ(state.take(StopFrame{}, due), std::string("stop at ") + to);
}

INSTANTIATE_TEST_SUITE_P(Rates, RunningTime,
                         testing::Values(Run{"00:00:00:00", rate::fps24, 1, "00:00:00:01"},
                                         Run{"00:59:59:23", rate::fps24, 1, "01:00:00:00"},
                                         Run{"23:59:59:24", rate::fps25, 1, "00:00:00:00"},
                                         Run{"10:00:00:00", rate::fps30, 108000, "11:00:00:00"},
                                         Run{"00:00:59:29", rate::fps30Drop, 1, "00:01:00:02"},
                                         Run{"00:09:59:29", rate::fps30Drop, 1, "00:10:00:00"},
                                         // An hour of drop-frame leaves 108 numbers out.
                                         Run{"10:00:00:00", rate::fps30Drop, 107892, "11:00:00:00"},
                                         Run{"01:00:00:00", rate::fps24, 2073600, "01:00:00:00"}));

TEST(GeneratorState, CountsTheSameHoweverOftenItIsAsked) {
    GeneratorState state;
    state.take(setup("00:00:00:00", sync::mtc, rate::fps30Drop), zero);
    state.take(start("00:00:00:00"), zero);
    const auto end = afterFrames(17982, rate::fps30Drop);
    for (auto now = zero; now < end; now += std::chrono::milliseconds(7))
        state.status(now);
    EXPECT_EQ(state.status(end), "running 00:10:00:00 30 df MTC");
}

TEST(GeneratorState, TimeDoesNotGoBack) {
    GeneratorState state;
    state.take(setup("00:00:00:00", sync::mtc, rate::fps30), zero);
    state.take(start("00:00:00:00"), zero);
    EXPECT_EQ(state.status(zero - std::chrono::seconds(1)), "running 00:00:00:00 30 fps MTC");
    EXPECT_EQ(state.status(zero + std::chrono::seconds(2)), "running 00:00:02:00 30 fps MTC");
    EXPECT_EQ(state.status(zero + std::chrono::seconds(1)), "running 00:00:02:00 30 fps MTC");
}

TEST(GeneratorState, AStopThatIsReadLateCountsByItsArrival) {
    GeneratorState state;
    state.take(setup("00:00:59:20", sync::dtl, rate::fps30Drop), zero);
    state.take(start("00:00:59:20"), zero);
    EXPECT_EQ(state.status(afterFrames(12, rate::fps30Drop)), "running 00:01:00:04 30 df DTL");
    EXPECT_EQ(state.take(StopFrame{}, afterFrames(11, rate::fps30Drop)), "stop at 00:01:00:03");
}

TEST(GeneratorState, ShowsTheStartTimeWhereTheRateIsUnknown) {
    GeneratorState state;
    EXPECT_EQ(state.take(setup("00:59:59:29", sync::fsk, std::nullopt), zero),
              "setup 00:59:59:29 FSK, rate unknown");
    EXPECT_EQ(state.take(start("00:59:59:29"), zero), "start 00:59:59:29");
    EXPECT_EQ(state.status(zero + std::chrono::hours(1)),
              "running since 00:59:59:29 FSK, rate unknown");
    EXPECT_EQ(state.take(StopFrame{}, zero + std::chrono::hours(1)), "stop");
}

TEST(GeneratorState, ALaterSetupReplacesAnEarlierOne) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25), zero);
    state.take(setup("02:00:00:00", sync::dtl, rate::fps30), zero);
    EXPECT_EQ(state.take(start("02:00:00:00"), zero), "start 02:00:00:00");
    EXPECT_EQ(state.status(zero), "running 02:00:00:00 30 fps DTL");
}

TEST(GeneratorState, RefusesAStartWithoutASetup) {
    GeneratorState state;
    EXPECT_EQ(state.take(start("00:00:00:00"), zero),
              "unexpected: start 00:00:00:00 without a setup");
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25), zero);
    state.take(StopFrame{}, zero);
    EXPECT_EQ(state.take(start("01:00:00:00"), zero),
              "unexpected: start 01:00:00:00 without a setup");
    EXPECT_EQ(state.phase(), Phase::Stopped);
}

TEST(GeneratorState, RefusesAStartWithAnotherTimeThanItsSetup) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25), zero);
    EXPECT_EQ(state.take(start("01:00:00:01"), zero),
              "unexpected: start 01:00:00:01 after setup 01:00:00:00 25 fps MTC");
    EXPECT_EQ(state.phase(), Phase::SetUp);
}

TEST(GeneratorState, RefusesSetupAndStartWhileRunning) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25), zero);
    state.take(start("01:00:00:00"), zero);
    EXPECT_EQ(state.take(setup("02:00:00:00", sync::mtc, rate::fps30), zero),
              "unexpected: setup 02:00:00:00 30 fps MTC while running");
    EXPECT_EQ(state.take(start("01:00:00:00"), zero + std::chrono::seconds(1)),
              "unexpected: start 01:00:00:00 while running");
    EXPECT_EQ(state.status(zero + std::chrono::seconds(2)), "running 01:00:02:00 25 fps MTC");
}

TEST(GeneratorState, TakesTheStopFrameForTheSetupWithTheSameBytes) {
    GeneratorState state;
    state.take(StopFrame{}, zero);
    EXPECT_EQ(state.take(start("00:00:00:00"), zero),
              "start 00:00:00:00, set up as 24 fps MTC by the stop frame");
    EXPECT_EQ(state.status(zero + std::chrono::seconds(1)), "running 00:00:01:00 24 fps MTC");
}

TEST(GeneratorState, AMalformedFrameChangesNothing) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25), zero);
    EXPECT_EQ(state.take(MalformedFrame{"8 bytes, not 9"}, zero), "malformed: 8 bytes, not 9");
    EXPECT_EQ(state.status(zero), "set up 01:00:00:00 25 fps MTC");
}

} // namespace
