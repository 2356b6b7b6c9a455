#include "controls/PreferencesTest.h"
#include "defaults/user_defaults.h"

#include <QLabel>

#include <algorithm>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Sent = FakeMidiSystem::Sent;
using Preferences = PreferencesTest;

TEST_F(Preferences, ShowTheBuiltInDefaultsAtAFirstLaunch) {
    show([] {
        EXPECT_EQ(delayField().text(), QStringLiteral("5"));
        EXPECT_EQ(delayStepper().value(), 5);
        EXPECT_EQ(frameRatePopup().currentText(), QStringLiteral("30 fps"));
        EXPECT_EQ(syncTypePopup().currentText(), QStringLiteral("MTC"));
        EXPECT_TRUE(pauseCheck().isChecked());
        EXPECT_EQ(midiOutPopup().currentText(), QStringLiteral("Timecode Box"));
        EXPECT_THAT(items(frameRatePopup()), ElementsAre("24 fps", "25 fps", "30 fps", "30 df"));
        EXPECT_THAT(items(syncTypePopup()), ElementsAre("MTC", "DTL", "FSK"));
        EXPECT_THAT(markedItems(frameRatePopup()), ElementsAre(2));
        EXPECT_THAT(markedItems(syncTypePopup()), ElementsAre(0));
    });
}

TEST_F(Preferences, ConfirmedAppliesAndStoresEverything) {
    const auto other = rig.midi.addDestination("Other Box", -5);
    show([] {
        typeDelay("12");
        QTest::keyClick(&midiOutPopup(), Qt::Key_Down);
        QTest::keyClick(&frameRatePopup(), Qt::Key_Down);
        QTest::keyClick(&syncTypePopup(), Qt::Key_Down);
        QTest::mouseClick(&pauseCheck(), Qt::LeftButton);
        EXPECT_THAT(markedItems(frameRatePopup()), ElementsAre(3)) << "the mark follows";
        press(Qt::Key_Return);
    });
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{other, stopFrame}));
    EXPECT_EQ(rig.controller.delayInSeconds(), 12);
    EXPECT_FALSE(rig.controller.pauseForReelChange());
    EXPECT_EQ(rig.controller.frameRate(), rate::fps30Drop);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps30Drop);
    EXPECT_EQ(rig.controller.syncType(), sync::dtl);
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::dtl);
    EXPECT_EQ(defaults::read().delayInSeconds, 12);
    EXPECT_EQ(defaults::read().defaultFrameRate, 3);
    EXPECT_EQ(defaults::read().defaultSyncType, 1);
    EXPECT_EQ(defaults::read().pauseForReelChange, false);
    EXPECT_EQ(defaults::read().midiDestination, -5);
}

TEST_F(Preferences, ConfirmedUnchangedStillStopsTheGeneratorResetsAndRewrites) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps24, sync::dtl);
    const auto edits = rig.controller.undoManager().undoMenuItemTitle();
    showAndConfirm();
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{rig.destination, stopFrame}));
    EXPECT_EQ(rig.controller.frameRate(), rate::fps30);
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps30);
    EXPECT_EQ(rig.controller.syncType(), sync::mtc);
    EXPECT_EQ(rig.ui.syncTypeMatrix.cellOn(), sync::mtc);
    EXPECT_EQ(defaults::read().delayInSeconds, 5);
    EXPECT_EQ(defaults::read().defaultFrameRate, 2);
    EXPECT_EQ(defaults::read().defaultSyncType, 0);
    EXPECT_EQ(defaults::read().pauseForReelChange, true);
    EXPECT_EQ(defaults::read().midiDestination, 77);
    EXPECT_EQ(rig.controller.undoManager().undoMenuItemTitle(), edits) << "nothing to undo";
    EXPECT_FALSE(rig.controller.dirty());
}

TEST_F(Preferences, CannotBeConfirmedWhileAReelIsAskedFor) {
    for (const std::uint64_t reel : {1, 2})
        rig.controller.batchStripeData().addItemWithReel(reel, {}, {0, 1, rate::fps30, sync::mtc});
    rig.controller.setUseBatch(true);
    rig.controller.setTransportState(transport::playing);
    rig.tick();
    rig.alerts.whileShown = [] {
        // Assistive technology can do this, though the alert blocks mouse and keyboard.
        button(QDialogButtonBox::Ok).click();
        EXPECT_TRUE(panel()) << "still shown";
    };
    show([this] {
        typeDelay("12");
        rig.runLoop.advance(RunLoop::Seconds(rig.controller.delayInSeconds()));
        ASSERT_EQ(rig.alerts.shown.size(), 1u);
        rig.midi.takeSent();
    });
    EXPECT_THAT(rig.midi.takeSent(), IsEmpty()) << "the next item goes on";
    EXPECT_EQ(rig.controller.delayInSeconds(), 5) << "cancelled";
}

TEST_F(Preferences, RatesCanBeChosenAgainWhenTheDefaultEndsFsk) {
    rig.controller.handleSyncTypeMenuItems(sync::fsk);
    ASSERT_FALSE(rig.ui.frameRateMatrix.isEnabled());
    showAndConfirm();
    EXPECT_EQ(rig.controller.syncType(), sync::mtc);
    EXPECT_TRUE(rig.ui.frameRateMatrix.isEnabled());
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), rate::fps30);
}

TEST_F(Preferences, NoRateCanBeChosenWhenTheDefaultIsFsk) {
    show([] {
        syncTypePopup().setCurrentIndex(2);
        press(Qt::Key_Return);
    });
    EXPECT_FALSE(rig.ui.frameRateMatrix.isEnabled());
    EXPECT_EQ(rig.ui.frameRateMatrix.cellOn(), std::nullopt);
    EXPECT_EQ(rig.controller.frameRate(), rate::fps30);
}

TEST_F(Preferences, TheDestinationIsStoppedBeforeAnythingIsStored) {
    rig.midi.whenSent = [&](const Sent&) {
        EXPECT_EQ(rig.controller.delayInSeconds(), 5);
        EXPECT_FALSE(defaults::read().midiDestination);
    };
    show([] {
        typeDelay("6");
        press(Qt::Key_Return);
    });
    EXPECT_EQ(rig.midi.takeSent().size(), 1u);
    EXPECT_EQ(rig.controller.delayInSeconds(), 6);
}

TEST_F(Preferences, CancelledChangesNothingAndForgetsTheEdits) {
    rig.midi.addDestination("Other Box", -5);
    const auto edit = [] {
        typeDelay("12");
        midiOutPopup().setCurrentIndex(1);
        frameRatePopup().setCurrentIndex(0);
        syncTypePopup().setCurrentIndex(2);
        pauseCheck().setChecked(false);
    };
    show([&] {
        edit();
        press(Qt::Key_Escape);
    });
    show([&] {
        edit();
        QTest::mouseClick(&button(QDialogButtonBox::Cancel), Qt::LeftButton);
        EXPECT_EQ(panel(), nullptr);
    });
    EXPECT_THAT(rig.midi.takeSent(), IsEmpty());
    EXPECT_EQ(Vexa_MIDI_Manager::sharedMidiManager().dest(), rig.destination);
    EXPECT_EQ(rig.controller.delayInSeconds(), 5);
    EXPECT_TRUE(rig.controller.pauseForReelChange());
    EXPECT_EQ(rig.controller.defaultFrameRate(), rate::fps30);
    EXPECT_EQ(rig.controller.defaultSyncType(), sync::mtc);
    EXPECT_FALSE(defaults::read().delayInSeconds);
    EXPECT_FALSE(defaults::read().midiDestination);
    show([] {
        EXPECT_EQ(delayField().text(), QStringLiteral("5"));
        EXPECT_EQ(midiOutPopup().currentIndex(), 0);
        EXPECT_EQ(frameRatePopup().currentIndex(), 2);
        EXPECT_EQ(syncTypePopup().currentIndex(), 0);
        EXPECT_TRUE(pauseCheck().isChecked());
    });
}

struct ShownDelay {
    double delay;
    const char* field;
    int stepper;
    double confirmed;
};

class Delay : public Preferences, public testing::WithParamInterface<ShownDelay> {};

TEST_P(Delay, IsShownInWholeSecondsAndConfirmedAsShown) {
    rig.controller.setDelayInSeconds(GetParam().delay);
    show([] {
        EXPECT_EQ(delayField().text(), QLatin1String(GetParam().field));
        EXPECT_EQ(delayStepper().value(), GetParam().stepper);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(rig.controller.delayInSeconds(), GetParam().confirmed);
    EXPECT_EQ(defaults::read().delayInSeconds, GetParam().confirmed);
}

INSTANTIATE_TEST_SUITE_P(
    Values, Delay,
    testing::Values(ShownDelay{7.9, "7", 7, 7.0}, ShownDelay{0, "0", 0, 0},
                    ShownDelay{-7.9, "-7", 0, -7.0}, ShownDelay{3e9, "3000000000", 2147483647, 3e9},
                    ShownDelay{1e300, "9223372036854775807", 2147483647, 0x1p63}));

struct TypedDelay {
    const char* text;
    int stepper;
    double confirmed;
};

class TypedDelays : public Preferences, public testing::WithParamInterface<TypedDelay> {};

TEST_P(TypedDelays, CountAsTheirIntegerValue) {
    show([] {
        typeDelay(GetParam().text);
        EXPECT_EQ(delayField().text(), QLatin1String(GetParam().text)) << "left as it was typed";
        EXPECT_EQ(delayStepper().value(), GetParam().stepper);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(rig.controller.delayInSeconds(), GetParam().confirmed);
}

INSTANTIATE_TEST_SUITE_P(Texts, TypedDelays,
                         testing::Values(TypedDelay{"12", 12, 12}, TypedDelay{"007", 7, 7},
                                         TypedDelay{" 8", 8, 8}, TypedDelay{"9.9", 9, 9},
                                         TypedDelay{"3 min", 3, 3}, TypedDelay{"soon", 0, 0},
                                         TypedDelay{"-2", 0, -2}, TypedDelay{"+4", 4, 4},
                                         TypedDelay{"99999999999999999999", 2147483647, 0x1p63}));

TEST_F(Preferences, AnEmptyDelayIsNone) {
    show([] {
        delayField().selectAll();
        QTest::keyClick(&delayField(), Qt::Key_Delete);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(rig.controller.delayInSeconds(), 0);
}

TEST_F(Preferences, TheStepperStepsTheDelayByASecond) {
    show([] {
        typeDelay("30");
        QTest::keyClick(&delayStepper(), Qt::Key_Up);
        EXPECT_EQ(delayField().text(), QStringLiteral("31"));
        QTest::keyClick(&delayStepper(), Qt::Key_Down);
        QTest::keyClick(&delayStepper(), Qt::Key_Down);
        EXPECT_EQ(delayField().text(), QStringLiteral("29"));
        press(Qt::Key_Return);
    });
    EXPECT_EQ(rig.controller.delayInSeconds(), 29);
}

TEST_F(Preferences, TheDelaysControlsFollowEachOtherAndNoOtherTag) {
    show([this] {
        {
            const QSignalBlocker blocker(delayStepper());
            delayStepper().setValue(9);
        }
        prefs.handlePrefControls(2);
        EXPECT_EQ(delayField().text(), QStringLiteral("5"));
        prefs.handlePrefControls(1);
        EXPECT_EQ(delayField().text(), QStringLiteral("9"));
    });
}

TEST_F(Preferences, CodesOutsideThePopupsLeaveTheirSelectionWithNothingMarked) {
    rig.controller.setDefaultFrameRate(77);
    rig.controller.setDefaultSyncType(UINT64_MAX);
    show([] {
        EXPECT_THAT(markedItems(frameRatePopup()), IsEmpty());
        EXPECT_THAT(markedItems(syncTypePopup()), IsEmpty());
        EXPECT_EQ(frameRatePopup().currentIndex(), 0);
        EXPECT_EQ(syncTypePopup().currentIndex(), 0);
        QTest::keyClick(&frameRatePopup(), Qt::Key_Down);
        EXPECT_THAT(markedItems(frameRatePopup()), ElementsAre(1));
        press(Qt::Key_Return);
    });
    EXPECT_EQ(rig.controller.defaultFrameRate(), 1u);
    EXPECT_EQ(rig.controller.defaultSyncType(), 0u);
}

TEST_F(Preferences, TabGoesFromControlToControlAsTheyAreRead) {
    show([] {
        EXPECT_TRUE(delayField().hasFocus());
        EXPECT_EQ(delayField().selectedText(), QStringLiteral("5"));
        EXPECT_TRUE(button(QDialogButtonBox::Ok).isDefault());
        std::vector<std::string> order;
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order.push_back(QApplication::focusWidget()->objectName().toStdString());
        }
        EXPECT_THAT(order, ElementsAre("delayStepper", "midiOutPopup", "defaultFrameRatePopup",
                                       "defaultSyncTypePopup", "pauseForReelChangeCheck"));
    });
}

TEST_F(Preferences, EveryControlHasItsNameAndALetterOfItsOwn) {
    show([] {
        const std::pair<const char*, const char*> names[] = {
            {"delayField", "Delay between items"},
            {"delayStepper", "Step delay"},
            {"midiOutPopup", "MIDI destination"},
            {"defaultFrameRatePopup", "Default frame rate"},
            {"defaultSyncTypePopup", "Default sync type"},
            {"pauseForReelChangeCheck", "Pause for reel change"}};
        for (const auto& [outlet, name] : names)
            EXPECT_EQ(control<QWidget>(outlet).accessibleName(), QLatin1String(name));
        EXPECT_EQ(midiOutPopup().accessibleDescription(), QStringLiteral("Timecode Box"));
        EXPECT_EQ(frameRatePopup().accessibleDescription(), QStringLiteral("30 fps"));
        EXPECT_EQ(syncTypePopup().accessibleDescription(), QStringLiteral("MTC"));

        std::vector<QString> letters;
        for (const auto* label : panel()->findChildren<QLabel*>())
            if (label->buddy())
                letters.push_back(QKeySequence::mnemonic(label->text()).toString());
        letters.push_back(QKeySequence::mnemonic(pauseCheck().text()).toString());
        EXPECT_EQ(letters.size(), 5u);
        EXPECT_FALSE(std::ranges::count(letters, QString()));
        std::ranges::sort(letters);
        EXPECT_EQ(std::ranges::adjacent_find(letters), letters.end());
    });
}

} // namespace
