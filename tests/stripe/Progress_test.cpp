#include "stripe/Progress.h"
#include "stripe/transport_state.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

TEST(TransportState, IsThatOfThePhase) {
    const auto state = [](Phase phase, bool pastFirstItem) {
        Progress progress;
        progress.phase = phase;
        progress.pastFirstItem = pastFirstItem;
        return transportStateOf(progress);
    };
    EXPECT_EQ(state(Phase::stopped, false), transport::stopped);
    EXPECT_EQ(state(Phase::stopped, true), transport::stopped);
    EXPECT_EQ(state(Phase::paused, true), transport::paused);
    EXPECT_EQ(state(Phase::running, false), transport::playing);
    EXPECT_EQ(state(Phase::running, true), transport::pausedBetweenItems);
    EXPECT_EQ(state(Phase::betweenItems, true), transport::pausedBetweenItems);
    EXPECT_EQ(state(Phase::awaitingReel, true), transport::pausedBetweenItems);
}

} // namespace
