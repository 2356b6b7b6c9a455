#include "controls/PreferencesTest.h"
#include "defaults/user_defaults.h"

#include <QAbstractItemView>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;

namespace {

using Sent = FakeMidiSystem::Sent;
using PreferencesDestinations = PreferencesTest;

TEST_F(PreferencesDestinations, EqualAndEmptyNamesHaveAnItemEach) {
    const auto unnamed = rig.midi.addDestination({}, 2);
    const auto twin = rig.midi.addDestination("Timecode Box", 3);
    rig.midi.addDestination("", 4);
    for (const auto& [index, expected] : {std::pair{1, unnamed}, std::pair{2, twin}}) {
        show([index = index] {
            EXPECT_THAT(items(midiOutPopup()), ElementsAre("Timecode Box", "", "Timecode Box", ""));
            midiOutPopup().setCurrentIndex(index);
            press(Qt::Key_Return);
        });
        EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{expected, stopFrame}));
        show([index = index] { EXPECT_EQ(midiOutPopup().currentIndex(), index); });
    }
}

TEST_F(PreferencesDestinations, AnEmptyListConfirmedLeavesNoDestinationAndKeepsTheID) {
    rig.midi.unplug(rig.destination);
    show([] {
        EXPECT_EQ(midiOutPopup().count(), 0);
        EXPECT_EQ(midiOutPopup().currentIndex(), -1);
        press(Qt::Key_Return);
    });
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{0, stopFrame}));
    EXPECT_EQ(Vexa_MIDI_Manager::sharedMidiManager().dest(), 0u);
    EXPECT_EQ(defaults::read().midiDestination, 77);
}

TEST_F(PreferencesDestinations, WhenTheDestinationIsNotListedTheFirstIsSelected) {
    const auto other = rig.midi.addDestination("Other Box", 5);
    rig.midi.unplug(rig.destination);
    showAndConfirm();
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{other, stopFrame}));
}

TEST_F(PreferencesDestinations, TheListFollowsWhatIsPluggedInAndTheChoiceStays) {
    show([this] {
        const auto early = rig.midi.addDestination("Other Box", 5);
        rig.midi.unplug(early);
        rig.midi.plugIn(early, 0);
        letASecondPass();
        EXPECT_THAT(items(midiOutPopup()), ElementsAre("Other Box", "Timecode Box"));
        EXPECT_EQ(midiOutPopup().currentIndex(), 1);
        press(Qt::Key_Return);
    });
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{rig.destination, stopFrame}));
}

TEST_F(PreferencesDestinations, AChoiceThatIsUnpluggedIsNoneUntilItComesBack) {
    const auto chosen = rig.midi.addDestination("Other Box", 5);
    show([&] {
        midiOutPopup().setCurrentIndex(1);
        rig.midi.unplug(chosen);
        letASecondPass();
        EXPECT_THAT(items(midiOutPopup()), ElementsAre("Timecode Box"));
        EXPECT_EQ(midiOutPopup().currentIndex(), -1);
        rig.midi.plugIn(chosen, 0);
        letASecondPass();
        EXPECT_EQ(midiOutPopup().currentIndex(), 0);
        EXPECT_EQ(midiOutPopup().currentText(), QStringLiteral("Other Box"));
        press(Qt::Key_Return);
    });
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{chosen, stopFrame}));
}

TEST_F(PreferencesDestinations, AnUnpluggedChoiceConfirmedIsNotReplacedByAnother) {
    rig.midi.addDestination("Other Box", 5);
    show([&] {
        rig.midi.unplug(rig.destination);
        letASecondPass();
        press(Qt::Key_Return);
    });
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{0, stopFrame}));
    EXPECT_EQ(defaults::read().midiDestination, 77);
}

TEST_F(PreferencesDestinations, WhatIsSeenSelectedIsConnectedThoughAnotherHasItsPositionByNow) {
    rig.midi.addDestination("Other Box", 5);
    show([&] {
        rig.midi.unplug(rig.destination);
        EXPECT_EQ(midiOutPopup().currentText(), QStringLiteral("Timecode Box"));
        press(Qt::Key_Return);
    });
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{rig.destination, stopFrame}));
    EXPECT_EQ(defaults::read().midiDestination, 77);
}

TEST_F(PreferencesDestinations, WhatIsPluggedInFirstIsSelected) {
    rig.midi.unplug(rig.destination);
    show([&] {
        rig.midi.plugIn(rig.destination, 0);
        letASecondPass();
        EXPECT_EQ(midiOutPopup().currentText(), QStringLiteral("Timecode Box"));
        press(Qt::Key_Return);
    });
    EXPECT_THAT(rig.midi.takeSent(), ElementsAre(Sent{rig.destination, stopFrame}));
}

TEST_F(PreferencesDestinations, AListThatIsOpenStaysAsItIs) {
    rig.midi.addDestination("Other Box", 5);
    show([&] {
        midiOutPopup().showPopup();
        rig.midi.unplug(rig.destination);
        letASecondPass();
        EXPECT_EQ(midiOutPopup().count(), 2);
        midiOutPopup().hidePopup();
        letASecondPass();
        EXPECT_EQ(midiOutPopup().count(), 1);
    });
}

} // namespace
