#include "generator/generator_state.h"
#include "timecode/sync_type.h"

#include <gtest/gtest.h>

using namespace vexa;
using Phase = GeneratorState::Phase;

namespace {

SetupFrame setup(const char* time, std::uint64_t sync, std::optional<std::uint64_t> rate) {
    return {timecodeFromText(time).value(), {sync, rate}};
}

StartFrame start(const char* time) { return {timecodeFromText(time).value()}; }

TEST(GeneratorState, RunsFromSetupAndStartUntilStop) {
    GeneratorState state;
    EXPECT_EQ(state.phase(), Phase::Stopped);
    EXPECT_EQ(state.setup(), std::nullopt);

    EXPECT_EQ(state.take(StopFrame{}), Reply::Done);
    EXPECT_EQ(state.phase(), Phase::Stopped);
    EXPECT_EQ(state.take(setup("01:00:00:00", sync::dtl, rate::fps25)), Reply::Done);
    EXPECT_EQ(state.phase(), Phase::SetUp);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::dtl, rate::fps25));

    EXPECT_EQ(state.take(start("01:00:00:00")), Reply::Done);
    EXPECT_EQ(state.phase(), Phase::Running);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::dtl, rate::fps25));

    EXPECT_EQ(state.take(StopFrame{}), Reply::Done);
    EXPECT_EQ(state.phase(), Phase::Stopped);
    EXPECT_EQ(state.take(StopFrame{}), Reply::Done);
}

TEST(GeneratorState, ALaterSetupReplacesAnEarlierOne) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    state.take(setup("02:00:00:00", sync::dtl, rate::fps30));
    EXPECT_EQ(state.take(start("02:00:00:00")), Reply::Done);
    EXPECT_EQ(state.setup(), setup("02:00:00:00", sync::dtl, rate::fps30));
}

TEST(GeneratorState, RefusesAStartWithoutASetup) {
    GeneratorState state;
    EXPECT_EQ(state.take(start("00:00:00:00")), Reply::WithoutSetup);
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    state.take(StopFrame{});
    EXPECT_EQ(state.take(start("01:00:00:00")), Reply::WithoutSetup);
    EXPECT_EQ(state.phase(), Phase::Stopped);
}

TEST(GeneratorState, RefusesAStartWithAnotherTimeThanItsSetup) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    EXPECT_EQ(state.take(start("01:00:00:01")), Reply::AfterOtherSetup);
    EXPECT_EQ(state.phase(), Phase::SetUp);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::mtc, rate::fps25));
}

TEST(GeneratorState, RefusesSetupAndStartWhileRunning) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    state.take(start("01:00:00:00"));
    EXPECT_EQ(state.take(setup("02:00:00:00", sync::mtc, rate::fps30)), Reply::WhileRunning);
    EXPECT_EQ(state.take(start("01:00:00:00")), Reply::WhileRunning);
    EXPECT_EQ(state.phase(), Phase::Running);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::mtc, rate::fps25));
}

TEST(GeneratorState, TakesTheStopFrameForTheSetupWithTheSameBytes) {
    GeneratorState state;
    state.take(StopFrame{});
    EXPECT_EQ(state.take(start("00:00:00:00")), Reply::DoneBySetupInStop);
    EXPECT_EQ(state.setup(), setup("00:00:00:00", sync::mtc, rate::fps24));
}

TEST(GeneratorState, AMalformedFrameChangesNothing) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    EXPECT_EQ(state.take(MalformedFrame{Fault::Size}), Reply::Malformed);
    EXPECT_EQ(state.phase(), Phase::SetUp);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::mtc, rate::fps25));
}

} // namespace
