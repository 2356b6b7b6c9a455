#include "defaults/user_defaults.h"
#include "support/CleanDefaults.h"
#include "support/ControllerRig.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct StartUp : testing::Test {
    CleanDefaults clean;
};

TEST_F(StartUp, AFirstLaunchShowsTheBuiltInDefaults) {
    const ControllerRig rig;
    EXPECT_EQ(shown(rig.ui.startTimeButton), "01:00:00:00");
    EXPECT_EQ(shown(rig.ui.endTimeButton), "00:00:00:00");
    EXPECT_FALSE(rig.controller.stopTimeSet());
    EXPECT_EQ(rig.controller.frameRate(), rate::fps30);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps30);
    EXPECT_EQ(rig.controller.syncType(), sync::mtc);
    EXPECT_EQ(rig.controller.delayInSeconds(), 5.0);
    EXPECT_TRUE(rig.controller.pauseForReelChange());
    EXPECT_EQ(rig.ui.window.title(), QStringLiteral("Vexa Remote: Untitled Batch List"));
    EXPECT_EQ(rig.controller.batchStripeData().owner(), &rig.controller);
    EXPECT_FALSE(rig.controller.dirty());
    EXPECT_FALSE(rig.controller.previouslySaved());
    EXPECT_FALSE(rig.controller.undoManager().canUndo());
}

TEST_F(StartUp, TheStoredDefaultsAreMadeCurrent) {
    defaults::write({.delayInSeconds = 7.9,
                     .defaultFrameRate = 1,
                     .defaultSyncType = 2,
                     .pauseForReelChange = false});
    const ControllerRig rig;
    EXPECT_EQ(rig.controller.delayInSeconds(), 7.9);
    EXPECT_EQ(rig.controller.frameRate(), rate::fps25);
    EXPECT_EQ(rig.controller.syncType(), sync::fsk);
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::fsk);
    EXPECT_FALSE(rig.ui.frameRateMatrix.isEnabled());
    EXPECT_FALSE(rig.controller.pauseForReelChange());
}

TEST_F(StartUp, StoredCodesAreTakenWhateverTheyAre) {
    defaults::write({.defaultFrameRate = 77, .defaultSyncType = ~std::uint64_t{0}});
    const ControllerRig rig;
    EXPECT_EQ(rig.controller.frameRate(), 77u);
    EXPECT_EQ(rig.controller.frameInterval(), 1.0 / 30);
    EXPECT_EQ(rig.controller.syncType(), UINT64_MAX);
}

TEST_F(StartUp, WhatIsWrittenIsReadAtTheNextLaunch) {
    {
        ControllerRig rig;
        rig.controller.setDelayInSeconds(12);
        rig.controller.setDefaultFrameRate(rate::fps30Drop);
        rig.controller.setDefaultSyncType(sync::dtl);
        rig.controller.setPauseForReelChange(false);
        rig.controller.writePrefs();
    }
    const ControllerRig rig;
    EXPECT_EQ(rig.controller.delayInSeconds(), 12);
    EXPECT_EQ(rig.controller.frameRate(), rate::fps30Drop);
    EXPECT_EQ(rig.controller.syncType(), sync::dtl);
    EXPECT_FALSE(rig.controller.pauseForReelChange());
}

TEST_F(StartUp, ColumnsAndToolTipsAreSet) {
    const ControllerRig rig;
    EXPECT_EQ(rig.ui.batchTable.columnIdentifiers().join(QLatin1Char(' ')),
              QStringLiteral("vexareel vexatitle vexastart vexastop vexarate vexatype"));
    EXPECT_EQ(rig.ui.addToBatchButton.toolTip(), QStringLiteral("Add to Batch Stripe List"));
    EXPECT_EQ(rig.ui.removeFromBatchButton.toolTip(),
              QStringLiteral("Remove Selected Items from Batch Stripe List"));
    EXPECT_EQ(rig.ui.stopTimeCheck.toolTip(),
              QStringLiteral(
                  "Set a striping stop time-\n\nIf Off, striping continues until the Stop or "
                  "Pause button is pressed.\n\nIf On, striping stops when the timecode reaches "
                  "the Stop time"));
}

TEST_F(StartUp, SendsOneStopToTheFirstDestinationAndAnotherToARememberedOne) {
    FakeMidiSystem midi;
    ManualRunLoop runLoop;
    ScriptedAlerts alerts;
    midi.addDestination("Box", 77);
    for (const bool remembered : {false, true}) {
        if (remembered)
            defaults::write({.midiDestination = 77});
        Vexa_MIDI_Manager::setMidiSystem(&midi);
        PlainOutlets ui;
        Vexa_RemoteAppDelegate controller(ui.outlets(alerts), runLoop);
        EXPECT_THAT(midi.takeBytes(), IsEmpty());
        controller.applicationDidFinishLaunching();
        EXPECT_EQ(midi.takeBytes().size(), remembered ? 2u : 1u);
    }
    Vexa_MIDI_Manager::setMidiSystem(nullptr);
}

TEST_F(StartUp, ShuttingDownInMidRunStopsEveryTimer) {
    ManualRunLoop runLoop;
    FakeMidiSystem midi;
    ScriptedAlerts alerts;
    PlainOutlets ui;
    Vexa_MIDI_Manager::setMidiSystem(&midi);
    {
        Vexa_RemoteAppDelegate controller(ui.outlets(alerts), runLoop);
        controller.applicationDidFinishLaunching();
        auto& list = controller.batchStripeData();
        list.addItemWithReel(1, QStringLiteral("a"), {0, 1, 2, 0});
        list.addItemWithReel(1, QStringLiteral("b"), {0, 1, 2, 0});
        controller.setUseBatch(true);
        controller.setTransportState(transport::playing);
        runLoop.fireTimerOf(RunLoop::Seconds(1.0 / 30));
        EXPECT_EQ(runLoop.liveIntervals().size(), 2u);
    }
    EXPECT_THAT(runLoop.liveIntervals(), IsEmpty());
    Vexa_MIDI_Manager::setMidiSystem(nullptr);
}

} // namespace
