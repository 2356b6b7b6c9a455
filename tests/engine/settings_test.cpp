#include "support/CleanDefaults.h"
#include "support/ControllerRig.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

struct Settings : testing::Test {
    const CleanDefaults defaults;
    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
};

TEST_F(Settings, TheShownTimesFollowTheRateWhileStopped) {
    const QSignalSpy changes(&controller, &Vexa_RemoteAppDelegate::vexaratechg);
    controller.setFrameRate(rate::fps25);
    EXPECT_EQ(controller.frameCount(), 25);
    EXPECT_EQ(changes.count(), 1);
    controller.setTransportState(transport::playing);
    controller.setFrameRate(rate::fps24);
    EXPECT_EQ(controller.frameCount(), 24);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(Settings, TheDefaultsAreTakenShownAndTold) {
    controller.setDefaultFrameRate(rate::fps25);
    controller.setDefaultSyncType(sync::dtl);
    std::uint64_t toldRate = 0;
    std::uint64_t toldType = 0;
    QObject::connect(&controller, &Vexa_RemoteAppDelegate::stateChanged, [&] {
        toldRate = controller.frameRate();
        toldType = controller.syncType();
    });
    controller.setFrameAndSyncFromDefaults();
    EXPECT_EQ(controller.frameRate(), rate::fps25);
    EXPECT_EQ(controller.syncType(), sync::dtl);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps25);
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::dtl);
    EXPECT_EQ(toldRate, rate::fps25);
    EXPECT_EQ(toldType, sync::dtl);
    EXPECT_FALSE(controller.undoManager().canUndo());
}

TEST_F(Settings, TheDefaultsCanTurnToFskAndBack) {
    controller.setDefaultSyncType(sync::fsk);
    controller.setFrameAndSyncFromDefaults();
    EXPECT_FALSE(rig.ui.frameRateMatrix.isEnabled());
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), std::nullopt);
    controller.setDefaultSyncType(sync::mtc);
    controller.setFrameAndSyncFromDefaults();
    EXPECT_TRUE(rig.ui.frameRateMatrix.isEnabled());
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), controller.defaultFrameRate());
}

} // namespace
