#include "support/ControllerRig.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

#include <random>

using namespace vexa;
using namespace vexa::test;

namespace {

struct SettingsEdits : testing::Test {
    /// The operator enters a time in a display and commits it.
    void enter(PlainDisplay& display, const char* time) {
        display.setBcdValue(tc(time));
        rig.commit(display);
        undo.endEvent();
    }
    void enterStop(const char* time) {
        rig.ui.endTimeButton.setState(1);
        controller.handleStopTimeButton();
        rig.ui.endTimeButton.setState(0);
        enter(rig.ui.endTimeButton, time);
    }
    void edit(const std::function<void()>& edit) {
        edit();
        undo.endEvent();
    }

    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
    UndoManager& undo = controller.undoManager();
};

TEST_F(SettingsEdits, EachIsAnnouncedOnce) {
    const QSignalSpy changes(&controller, &Vexa_RemoteAppDelegate::stateChanged);
    int expected = 0;
    const auto expectOneMore = [&](const char* edit) {
        EXPECT_EQ(changes.size(), ++expected) << edit;
    };
    controller.handleFrameRateMenuItems(rate::fps24);
    expectOneMore("rate");
    controller.handleSyncTypeMenuItems(sync::dtl);
    expectOneMore("type");
    enter(rig.ui.startTimeButton, "02:00:00:00");
    expectOneMore("start");
    controller.handleSetStopTimeMenu();
    expectOneMore("stop");
    undo.undo();
    expectOneMore("undo");
    undo.redo();
    expectOneMore("redo");
}

TEST_F(SettingsEdits, AStartTimeIsTakenAndUndone) {
    enter(rig.ui.startTimeButton, "02:00:00:00");
    EXPECT_EQ(controller.startTime(), tc("02:00:00:00"));
    EXPECT_EQ(controller.stopTime(), 0u) << "no stop time is set: it stays";
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Change Start Time"));
    undo.undo();
    EXPECT_EQ(controller.startTime(), tc("01:00:00:00"));
    EXPECT_EQ(shown(rig.ui.startTimeButton), "01:00:00:00");
    undo.redo();
    EXPECT_EQ(controller.startTime(), tc("02:00:00:00"));
}

TEST_F(SettingsEdits, AStopTimeAfterTheStartIsTaken) {
    ASSERT_TRUE(rig.ui.addToBatchButton.isHidden());
    enterStop("01:00:10:00");
    EXPECT_EQ(controller.stopTime(), tc("01:00:10:00"));
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Change Stop Time"));
    EXPECT_FALSE(rig.ui.addToBatchButton.isHidden());
}

TEST_F(SettingsEdits, AStopTimeNotAfterTheStartBecomesFiveSecondsAfterIt) {
    enterStop("00:59:00:00");
    EXPECT_EQ(controller.stopTime(), tc("01:00:05:00"));
    EXPECT_EQ(shown(rig.ui.endTimeButton), "01:00:05:00");
    EXPECT_TRUE(controller.stopTimeSet());
    enterStop("01:00:00:00");
    EXPECT_EQ(controller.stopTime(), tc("01:00:05:00"));
}

TEST_F(SettingsEdits, AStartTimeThatReachesTheStopPushesIt) {
    enterStop("01:00:10:00");
    enter(rig.ui.startTimeButton, "01:00:10:00");
    EXPECT_EQ(controller.stopTime(), tc("01:00:15:00"));
    EXPECT_EQ(shown(rig.ui.endTimeButton), "01:00:15:00");
    undo.undo();
    EXPECT_EQ(controller.startTime(), tc("01:00:00:00"));
    EXPECT_EQ(controller.stopTime(), tc("01:00:10:00"));
    EXPECT_EQ(shown(rig.ui.endTimeButton), "01:00:10:00");
}

struct Push {
    std::uint64_t rate;
    const char* start;
    const char* stop;
};

class FiveSecondRule : public SettingsEdits, public testing::WithParamInterface<Push> {};

TEST_P(FiveSecondRule, AddsFiveTimesTheFrameCount) {
    controller.handleFrameRateMenuItems(GetParam().rate);
    enter(rig.ui.startTimeButton, GetParam().start);
    edit([&] { controller.setStopTimeSet(true, 0, QStringLiteral("Set Stop Time")); });
    EXPECT_EQ(shown(rig.ui.endTimeButton), GetParam().stop);
    EXPECT_EQ(controller.stopTime(), tc(GetParam().stop));
}

INSTANTIATE_TEST_SUITE_P(
    Rates, FiveSecondRule,
    testing::Values(Push{rate::fps24, "01:00:00:00", "01:00:05:00"},
                    Push{rate::fps25, "01:00:00:13", "01:00:05:13"},
                    Push{rate::fps30Drop, "01:00:00:00", "01:00:05:00"},
                    Push{rate::fps30Drop, "00:00:55:01", "00:01:00:03"},
                    // Past midnight, the adjusted stop time is before the start time.
                    Push{rate::fps30, "23:59:58:00", "00:00:03:00"}));

TEST_F(SettingsEdits, TheStopTimeCheckPushesShowsAndHides) {
    rig.ui.stopTimeCheck.setState(true);
    edit([&] { controller.handleStopTimeCheck(); });
    EXPECT_TRUE(controller.stopTimeSet());
    EXPECT_EQ(controller.stopTime(), tc("01:00:05:00"));
    EXPECT_FALSE(rig.ui.addToBatchButton.isHidden());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Set Stop Time"));

    rig.ui.stopTimeCheck.setState(false);
    edit([&] { controller.handleStopTimeCheck(); });
    EXPECT_FALSE(controller.stopTimeSet());
    EXPECT_EQ(controller.stopTime(), tc("01:00:05:00"));
    EXPECT_TRUE(rig.ui.addToBatchButton.isHidden());
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Set Stop Time"));

    undo.undo();
    EXPECT_TRUE(controller.stopTimeSet());
    EXPECT_TRUE(rig.ui.stopTimeCheck.state());
    EXPECT_FALSE(rig.ui.addToBatchButton.isHidden());
    undo.undo();
    EXPECT_FALSE(controller.stopTimeSet());
    EXPECT_EQ(controller.stopTime(), 0u);
    EXPECT_TRUE(rig.ui.addToBatchButton.isHidden());
}

TEST_F(SettingsEdits, UndoingAStopTimeThatRestoresOneNotAfterTheStartTurnsTheFlagOff) {
    rig.ui.endTimeButton.setBcdValue(tc("01:30:00:00"));
    rig.commit(rig.ui.endTimeButton);
    undo.undo();
    EXPECT_EQ(controller.stopTime(), 0u);
    EXPECT_FALSE(controller.stopTimeSet());
    EXPECT_FALSE(rig.ui.stopTimeCheck.state());
    EXPECT_FALSE(rig.ui.addToBatchButton.isHidden()) << "undo neither shows nor hides it";
}

TEST_F(SettingsEdits, UndoingAStopTimeBringsBackTheFlagOfBeforeThePress) {
    enterStop("01:00:10:00");
    edit([&] { controller.handleSetStopTimeMenu(); });
    ASSERT_FALSE(controller.stopTimeSet());
    enterStop("01:00:20:00");
    EXPECT_TRUE(controller.stopTimeSet());
    for (int i = 0; i < 2; ++i) {
        undo.undo();
        EXPECT_EQ(controller.stopTime(), tc("01:00:10:00"));
        EXPECT_FALSE(controller.stopTimeSet());
        EXPECT_FALSE(rig.ui.stopTimeCheck.state());
        undo.redo();
        EXPECT_EQ(controller.stopTime(), tc("01:00:20:00"));
        EXPECT_TRUE(controller.stopTimeSet());
        EXPECT_TRUE(rig.ui.stopTimeCheck.state());
    }
}

TEST_F(SettingsEdits, TwoRegistrationsInOneEventAreOneUndo) {
    rig.ui.startTimeButton.setBcdValue(tc("04:00:00:00"));
    rig.commit(rig.ui.startTimeButton);
    rig.commit(rig.ui.startTimeButton);
    undo.undo();
    EXPECT_EQ(controller.startTime(), tc("01:00:00:00"));
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(SettingsEdits, AnUnchangedTimeOrTheChosenRateStillMakesAStep) {
    enter(rig.ui.startTimeButton, "01:00:00:00");
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Change Start Time"));
    edit([&] { controller.handleFrameRateRadios(); });
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Change Frame Rate"));
    edit([&] { controller.handleSyncTypeRadios(); });
    EXPECT_EQ(undo.undoActionName(), QStringLiteral("Change Sync Type"));
    for (int i = 0; i < 3; ++i)
        undo.undo();
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(SettingsEdits, OtherDisplaysAreIgnored) {
    rig.ui.currentTimeButton.setBcdValue(tc("08:00:00:00"));
    rig.commit(rig.ui.currentTimeButton);
    EXPECT_EQ(controller.startTime(), tc("01:00:00:00"));
    EXPECT_FALSE(undo.canUndo());
}

TEST_F(SettingsEdits, ARateChosenChangesTheDisplaysAndNotTheSettings) {
    enter(rig.ui.startTimeButton, "01:00:00:28");
    rig.ui.frameRateMatrix.selectCellWithTag(rate::fps24);
    edit([&] { controller.handleFrameRateRadios(); });
    EXPECT_EQ(controller.frameRate(), rate::fps24);
    EXPECT_EQ(shown(rig.ui.startTimeButton), "01:00:01:04");
    EXPECT_EQ(controller.startTime(), tc("01:00:00:28"));
    undo.undo();
    EXPECT_EQ(controller.frameRate(), rate::fps30);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps30);
}

TEST_F(SettingsEdits, ASyncTypeChosenFromTheMenuSelectsItsCellAndUndoes) {
    edit([&] { controller.handleSyncTypeMenuItems(sync::fsk); });
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::fsk);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), std::nullopt);
    undo.undo();
    EXPECT_EQ(controller.syncType(), sync::mtc);
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::mtc);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps30);
    undo.redo();
    EXPECT_FALSE(rig.ui.frameRateMatrix.isEnabled());
}

TEST_F(SettingsEdits, NoneOfThemMarksTheListAsChanged) {
    enter(rig.ui.startTimeButton, "02:00:00:00");
    enterStop("03:00:00:00");
    controller.handleFrameRateMenuItems(rate::fps24);
    controller.handleSyncTypeMenuItems(sync::dtl);
    undo.undo();
    EXPECT_FALSE(controller.dirty());
}

/// The state that the edits change.
struct Settings {
    std::uint64_t start, stop, rate, type;
    bool stopSet;
    bool operator==(const Settings&) const = default;
};

TEST_F(SettingsEdits, HundredsOfMixedEditsUndoAndRedoExactly) {
    const auto now = [this] {
        return Settings{controller.startTime(), controller.stopTime(), controller.frameRate(),
                        controller.syncType(), controller.stopTimeSet()};
    };
    std::mt19937 random(7);
    const auto below = [&](unsigned limit) { return random() % limit; };
    std::vector<Settings> states{now()};
    for (int i = 0; i < 400; ++i) {
        // Stop times stay after start times, so undo restores every flag.
        const Timecode start{below(10), below(60), below(60), below(24)};
        const Timecode stop{10 + below(10), below(60), below(60), below(24)};
        switch (below(5)) {
        case 0:
            enter(rig.ui.startTimeButton, timecodeText(start).c_str());
            break;
        case 1:
            if (!controller.stopTimeSet())
                continue;
            rig.ui.endTimeButton.setBcdValue(pack(stop));
            edit([&] {
                controller.setStopTimeSet(true, pack(stop), QStringLiteral("Set Stop Time"));
            });
            break;
        case 2:
            edit([&] { controller.handleSetStopTimeMenu(); });
            break;
        case 3:
            edit([&] { controller.handleFrameRateMenuItems(below(4)); });
            break;
        default:
            edit([&] { controller.handleSyncTypeMenuItems(below(3)); });
        }
        states.push_back(now());
    }
    for (auto state = states.rbegin() + 1; state != states.rend(); ++state) {
        undo.undo();
        ASSERT_EQ(now(), *state) << "undo to " << std::distance(state, states.rend()) - 1;
    }
    EXPECT_FALSE(undo.canUndo());
    for (std::size_t i = 1; i < states.size(); ++i) {
        undo.redo();
        ASSERT_EQ(now(), states[i]) << "redo to " << i;
    }
    std::size_t position = states.size() - 1;
    for (int i = 0; i < 1000; ++i) {
        if (below(2) && undo.canUndo()) {
            undo.undo();
            --position;
        } else if (undo.canRedo()) {
            undo.redo();
            ++position;
        }
        ASSERT_EQ(now(), states[position]);
    }
}

} // namespace
