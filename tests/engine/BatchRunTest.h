#pragma once

#include "support/ControllerRig.h"

#include <gtest/gtest.h>

namespace vexa::test {

/// A controller whose own settings differ from those of every item.
struct BatchRunTest : testing::Test {
    BatchRunTest() {
        controller.setStartTime(tc("09:00:00:00"), tc("10:00:00:00"), {});
        controller.handleFrameRateMenuItems(rate::fps24);
        controller.handleSyncTypeMenuItems(sync::dtl);
    }

    /// Three items of three frames, an hour apart, on these reels.
    void addThreeItems(std::uint64_t reel1, std::uint64_t reel2, std::uint64_t reel3) {
        auto& list = controller.batchStripeData();
        list.addItemWithReel(reel1, QStringLiteral("one"),
                             {tc("01:00:00:00"), tc("01:00:00:03"), rate::fps25, sync::mtc});
        list.addItemWithReel(reel2, QStringLiteral("two"),
                             {tc("02:00:00:00"), tc("02:00:00:03"), rate::fps30, sync::dtl});
        list.addItemWithReel(reel3, QStringLiteral("three"),
                             {tc("03:00:00:00"), tc("03:00:00:03"), rate::fps30Drop, sync::mtc});
        controller.handleBatchControlEnabling();
        controller.setUseBatch(true);
    }

    void endPause() { rig.runLoop.advance(RunLoop::Seconds(controller.delayInSeconds())); }

    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
};

} // namespace vexa::test
