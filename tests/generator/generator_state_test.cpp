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
    EXPECT_EQ(state.phase(), Phase::stopped);
    EXPECT_EQ(state.setup(), std::nullopt);

    EXPECT_EQ(state.take(StopFrame{}), Reply::done);
    EXPECT_EQ(state.phase(), Phase::stopped);
    EXPECT_EQ(state.take(setup("01:00:00:00", sync::dtl, rate::fps25)), Reply::done);
    EXPECT_EQ(state.phase(), Phase::setUp);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::dtl, rate::fps25));

    EXPECT_EQ(state.take(start("01:00:00:00")), Reply::done);
    EXPECT_EQ(state.phase(), Phase::running);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::dtl, rate::fps25));

    EXPECT_EQ(state.take(StopFrame{}), Reply::done);
    EXPECT_EQ(state.phase(), Phase::stopped);
    EXPECT_EQ(state.take(StopFrame{}), Reply::done);
}

TEST(GeneratorState, ALaterSetupReplacesAnEarlierOne) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    state.take(setup("02:00:00:00", sync::dtl, rate::fps30));
    EXPECT_EQ(state.take(start("02:00:00:00")), Reply::done);
    EXPECT_EQ(state.setup(), setup("02:00:00:00", sync::dtl, rate::fps30));
}

TEST(GeneratorState, RefusesAStartWithoutASetup) {
    GeneratorState state;
    EXPECT_EQ(state.take(start("00:00:00:00")), Reply::withoutSetup);
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    state.take(StopFrame{});
    EXPECT_EQ(state.take(start("01:00:00:00")), Reply::withoutSetup);
    EXPECT_EQ(state.phase(), Phase::stopped);
}

TEST(GeneratorState, RefusesAStartWithAnotherTimeThanItsSetup) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    EXPECT_EQ(state.take(start("01:00:00:01")), Reply::afterOtherSetup);
    EXPECT_EQ(state.phase(), Phase::setUp);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::mtc, rate::fps25));
}

TEST(GeneratorState, RefusesSetupAndStartWhileRunning) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    state.take(start("01:00:00:00"));
    EXPECT_EQ(state.take(setup("02:00:00:00", sync::mtc, rate::fps30)), Reply::whileRunning);
    EXPECT_EQ(state.take(start("01:00:00:00")), Reply::whileRunning);
    EXPECT_EQ(state.phase(), Phase::running);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::mtc, rate::fps25));
}

TEST(GeneratorState, TakesTheStopFrameForTheSetupWithTheSameBytes) {
    GeneratorState state;
    state.take(StopFrame{});
    EXPECT_EQ(state.take(start("00:00:00:00")), Reply::doneBySetupInStop);
    EXPECT_EQ(state.setup(), setup("00:00:00:00", sync::mtc, rate::fps24));
}

TEST(GeneratorState, AMalformedFrameChangesNothing) {
    GeneratorState state;
    state.take(setup("01:00:00:00", sync::mtc, rate::fps25));
    EXPECT_EQ(state.take(MalformedFrame{Fault::size}), Reply::malformed);
    EXPECT_EQ(state.phase(), Phase::setUp);
    EXPECT_EQ(state.setup(), setup("01:00:00:00", sync::mtc, rate::fps25));
}

} // namespace
