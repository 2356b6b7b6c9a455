#include "support/ControllerRig.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace vexa;
using namespace vexa::test;

namespace {

struct BatchControls {
    bool rows;
    bool selected;
    bool radiosEnabled;
    bool selectedCellEnabled;
    bool checkEnabled;
    bool removeHidden;
    std::uint64_t batchMode; ///< was 1 before
    bool useBatch;           ///< was true before
};

class BatchControlEnabling : public testing::TestWithParam<BatchControls> {};

TEST_P(BatchControlEnabling, FollowsTheRowsAndTheSelection) {
    const auto& expected = GetParam();
    ControllerRig rig;
    if (expected.rows)
        rig.controller.batchStripeData().addItemWithReel(1, QStringLiteral("x"), {0, 1, 2, 0});
    if (expected.selected)
        rig.ui.batchTable.selectRows({0});
    rig.controller.setUseBatch(true);
    rig.ui.batchCheck.setState(true);
    rig.controller.setBatchMode(batchModeSelected);
    rig.ui.batchRadios.setMatrixEnabled(true);
    rig.ui.batchRadios.selectCellWithTag(batchModeSelected);
    rig.ui.batchRadios.setCellEnabled(batchModeSelected, true);

    rig.controller.handleBatchControlEnabling();

    EXPECT_EQ(rig.ui.batchRadios.isEnabled(), expected.radiosEnabled);
    EXPECT_EQ(rig.ui.batchRadios.isCellEnabled(batchModeSelected), expected.selectedCellEnabled);
    EXPECT_EQ(rig.ui.batchCheck.isEnabled(), expected.checkEnabled);
    EXPECT_EQ(rig.ui.removeFromBatchButton.isHidden(), expected.removeHidden);
    EXPECT_EQ(rig.controller.batchMode(), expected.batchMode);
    EXPECT_EQ(rig.ui.batchRadios.selectedTag(), expected.batchMode);
    EXPECT_EQ(rig.controller.useBatch(), expected.useBatch);
    EXPECT_EQ(rig.ui.batchCheck.state(), expected.useBatch);
    EXPECT_FALSE(rig.controller.undoManager().canUndo());
}

INSTANTIATE_TEST_SUITE_P(
    Table, BatchControlEnabling,
    testing::Values(BatchControls{true, true, true, true, true, false, batchModeSelected, true},
                    BatchControls{true, false, true, false, true, true, batchModeAll, true},
                    BatchControls{false, false, false, false, false, true, batchModeAll, false}));

/// Ways to change the sync type that keep the rate of 25 fps.
using TypeChange = void (*)(ControllerRig&, std::uint64_t type);

void fromTheMenu(ControllerRig& rig, std::uint64_t type) {
    rig.controller.handleSyncTypeMenuItems(type);
}
void byThePreferences(ControllerRig& rig, std::uint64_t type) {
    rig.controller.setDefaultFrameRate(rate::fps25);
    rig.controller.setDefaultSyncType(type);
    rig.controller.setFrameAndSyncFromDefaults();
}
void byAnItemOfARun(ControllerRig& rig, std::uint64_t type) {
    rig.controller.batchStripeData().clearBatchList();
    rig.controller.batchStripeData().addItemWithReel(1, QStringLiteral("x"),
                                                     {0, 9, rate::fps25, type});
    rig.controller.setUseBatch(true);
    rig.controller.setTransportState(transport::playing);
}
void byTheEndOfARun(ControllerRig& rig, std::uint64_t type) {
    rig.controller.handleSyncTypeMenuItems(type);
    byAnItemOfARun(rig, type == sync::fsk ? sync::mtc : sync::fsk);
    rig.tick(9);
    ASSERT_EQ(rig.controller.transportState(), transport::stopped);
}
void byTheUndoOfARate(ControllerRig& rig, std::uint64_t type) {
    rig.controller.undoManager().endEvent();
    rig.controller.handleFrameRateMenuItems(rate::fps24);
    byThePreferences(rig, type);
    rig.controller.undo();
}

struct RateControls {
    std::uint64_t type;
    bool enabled;
    std::optional<std::uint64_t> cellOn;
};

class FrameRateEnabling : public testing::TestWithParam<std::tuple<RateControls, TypeChange>> {};

TEST_P(FrameRateEnabling, FollowsTheSyncType) {
    const auto& [expected, become] = GetParam();
    ControllerRig rig;
    rig.controller.handleFrameRateMenuItems(rate::fps25);
    become(rig, expected.type);
    EXPECT_EQ(rig.ui.frameRateMatrix.isEnabled(), expected.enabled);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), expected.cellOn);
    EXPECT_EQ(rig.controller.frameRate(), rate::fps25) << "the rate is kept";
    rig.controller.handleSyncTypeMenuItems(sync::mtc);
    EXPECT_TRUE(rig.ui.frameRateMatrix.isEnabled());
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps25);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FrameRateEnabling,
    testing::Combine(testing::Values(RateControls{sync::mtc, true, rate::fps25},
                                     RateControls{sync::dtl, true, rate::fps25},
                                     RateControls{sync::fsk, false, std::nullopt}),
                     testing::Values(fromTheMenu, byThePreferences, byAnItemOfARun, byTheEndOfARun,
                                     byTheUndoOfARate)));

} // namespace
