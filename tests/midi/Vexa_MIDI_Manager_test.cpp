#include "defaults/user_defaults.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "support/CleanDefaults.h"
#include "support/FakeMidiSystem.h"
#include "timecode/sync_type.h"

#include <QFile>
#include <QSettings>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

namespace vexa::test {
void PrintTo(const FakeMidiSystem::Sent& sent, std::ostream* out) {
    *out << sent.bytes << " to " << sent.destination;
}
} // namespace vexa::test

namespace {

const std::string stop = "F0 7D 42 00 00 00 00 00 F7";

struct Manager : testing::Test {
    Manager() { Vexa_MIDI_Manager::setMidiSystem(&system); }
    ~Manager() override { Vexa_MIDI_Manager::setMidiSystem(nullptr); }

    static Vexa_MIDI_Manager& shared() { return Vexa_MIDI_Manager::sharedMidiManager(); }

    CleanDefaults clean;
    FakeMidiSystem system;
};

using Sent = FakeMidiSystem::Sent;

TEST_F(Manager, TheStartFollowsTheSetupAndIsNotSentAgain) {
    const auto box = system.addDestination("Box", 5);
    shared().sendSetupMessageStart(0x01000000, rate::fps25, sync::dtl);
    shared().sendStartMessage();
    EXPECT_THAT(system.takeSent(), ElementsAre(Sent{box, "F0 7D 42 01 00 00 00 05 F7"},
                                               Sent{box, "F0 7D 42 01 00 00 00 7F F7"}));
}

TEST_F(Manager, SendsToNoneIfThereAreNoDestinations) {
    EXPECT_EQ(shared().dest(), 0u);
    EXPECT_EQ(shared().destID(), 0);
    EXPECT_THAT(shared().destinationList(), IsEmpty());
    EXPECT_EQ(shared().indexOfDestination(), 0);
    shared().sendStopMessage();
    EXPECT_THAT(system.takeSent(), ElementsAre(Sent{0, stop}));
}

TEST_F(Manager, ChoosesTheFirstAndSendsNothingIfNoneIsRemembered) {
    const auto first = system.addDestination("A", 11);
    system.addDestination("B", 12);
    EXPECT_EQ(shared().dest(), first);
    EXPECT_EQ(shared().destID(), 11);
    EXPECT_THAT(system.takeSent(), IsEmpty());
    EXPECT_FALSE(defaults::read().midiDestination) << "a fallback is not remembered";
}

TEST_F(Manager, ChoosesTheRememberedDestinationAndStopsItOnce) {
    system.addDestination("A", 11);
    const auto second = system.addDestination("B", -12);
    defaults::write({.midiDestination = -12});
    EXPECT_EQ(shared().dest(), second);
    EXPECT_EQ(shared().destID(), -12);
    EXPECT_THAT(system.takeSent(), ElementsAre(Sent{second, stop}));
    EXPECT_EQ(shared().indexOfDestination(), 1);
}

TEST_F(Manager, ChoosesTheRememberedDestinationUnderItsNewID) {
    system.addDestination("A", 11);
    const auto second = system.addDestination("B", 12);
    system.object(second).earlierId = 99;
    defaults::write({.midiDestination = 99});
    EXPECT_EQ(shared().dest(), second);
    EXPECT_EQ(shared().destID(), 12);
    EXPECT_EQ(shared().indexOfDestination(), 1);
    EXPECT_EQ(defaults::read().midiDestination, 99);
}

TEST_F(Manager, ChoosesTheFirstIfTheRememberedOneIsGoneAndStillRemembersIt) {
    const auto first = system.addDestination("A", 11);
    defaults::write({.midiDestination = 99});
    EXPECT_EQ(shared().dest(), first);
    EXPECT_EQ(shared().destID(), 11);
    EXPECT_THAT(system.takeSent(), ElementsAre(Sent{0, stop})) << "the stop reaches no device";
    EXPECT_EQ(defaults::read().midiDestination, 99);
}

TEST_F(Manager, HasNoDestinationIfTheRememberedOneIsGoneAndThereIsNoOther) {
    defaults::write({.midiDestination = 99});
    EXPECT_EQ(shared().dest(), 0u);
    EXPECT_EQ(shared().destID(), 0);
}

TEST_F(Manager, SendsEarlierMessagesInOrderOnceTheSystemIsReached) {
    system.addDestination("A", 11);
    const auto second = system.addDestination("B", 12);
    defaults::write({.midiDestination = 12});
    system.beOutOfReach();
    shared().sendSetupMessageStart(0x01000000, rate::fps25, sync::dtl);
    EXPECT_EQ(shared().dest(), 0u);
    EXPECT_EQ(shared().destID(), 12) << "confirming the preferences meanwhile saves this ID";
    EXPECT_THAT(system.takeSent(), IsEmpty());
    system.reach();
    EXPECT_EQ(shared().dest(), second);
    EXPECT_THAT(system.takeSent(),
                ElementsAre(Sent{second, stop}, Sent{second, "F0 7D 42 01 00 00 00 05 F7"},
                            Sent{second, "F0 7D 42 01 00 00 00 7F F7"}));
}

TEST_F(Manager, ConnectingByPositionStopsTheGeneratorThere) {
    system.addDestination("A", 11);
    const auto second = system.addDestination("B", 12);
    shared().connectToDestinationAtIndex(1);
    EXPECT_EQ(shared().dest(), second);
    EXPECT_EQ(shared().destID(), 12);
    EXPECT_THAT(system.takeSent(), ElementsAre(Sent{second, stop}));
    EXPECT_EQ(shared().indexOfDestination(), 1);
}

TEST_F(Manager, APositionOutsideTheListClearsTheDestinationAndKeepsTheID) {
    system.addDestination("A", 11);
    for (const std::int64_t index : {std::int64_t{-1}, std::int64_t{1}, INT64_MAX, INT64_MIN}) {
        shared().connectToDestinationAtIndex(0);
        system.takeSent();
        shared().connectToDestinationAtIndex(index);
        EXPECT_EQ(shared().dest(), 0u) << index;
        EXPECT_EQ(shared().destID(), 11) << index;
        EXPECT_THAT(system.takeSent(), ElementsAre(Sent{0, stop})) << index;
    }
}

TEST_F(Manager, ConfirmingAnEmptyListSavesTheOldID) {
    const auto box = system.addDestination("A", 11);
    shared().connectToDestinationAtIndex(0);
    system.unplug(box);
    shared().connectToDestinationAtIndex(-1);
    shared().writePrefs();
    EXPECT_EQ(defaults::read().midiDestination, 11);
}

TEST_F(Manager, PositionsReferToTheLastList) {
    const auto a = system.addDestination("A", 11);
    system.addDestination("B", 12);
    ASSERT_THAT(shared().destinationList(), ElementsAre("A", "B"));
    system.unplug(a);
    EXPECT_THAT(shared().destinationIDs(), ElementsAre(11, 12));
    EXPECT_EQ(shared().indexOfDestination(), 0);
    shared().connectToDestinationAtIndex(0);
    EXPECT_EQ(shared().dest(), a) << "not B, which is at this position now";
    EXPECT_EQ(shared().destID(), 11);
    ASSERT_THAT(shared().destinationList(), ElementsAre("B"));
    EXPECT_THAT(shared().destinationIDs(), ElementsAre(12));
}

TEST_F(Manager, AnUnknownIDHasPosition0) {
    system.addDestination("A", 11);
    system.addDestination("B", 12);
    shared().setDestID(13);
    EXPECT_EQ(shared().indexOfDestination(), 0);
}

TEST_F(Manager, ReadsTheListAgainEachTime) {
    system.addDestination("A", 11);
    EXPECT_THAT(shared().destinationList(), ElementsAre("A"));
    system.addDestination("B", 12);
    EXPECT_THAT(shared().destinationList(), ElementsAre("A", "B"));
}

TEST_F(Manager, ReadPrefsReturnsFalseAndKeepsTheIDIfNoneIsStored) {
    system.addDestination("A", 11);
    EXPECT_FALSE(shared().readPrefs());
    EXPECT_EQ(shared().destID(), 11);
    shared().setDestID(INT32_MIN);
    shared().writePrefs();
    shared().setDestID(0);
    EXPECT_TRUE(shared().readPrefs());
    EXPECT_EQ(shared().destID(), INT32_MIN);
}

TEST_F(Manager, SplitsPackedTimes) {
    EXPECT_EQ(Vexa_MIDI_Manager::bcdToHour(0x173B3A1D), 23u);
    EXPECT_EQ(Vexa_MIDI_Manager::bcdToMinute(0x173B3A1D), 59u);
    EXPECT_EQ(Vexa_MIDI_Manager::bcdToSecond(0x173B3A1D), 58u);
    EXPECT_EQ(Vexa_MIDI_Manager::bcdToFrame(0x173B3A1D), 29u);
}

struct Status : Manager {
    /// The status text about two seconds from now.
    static std::string text() {
        return statusText(shared().status(), std::chrono::steady_clock::now() + 2500ms);
    }
};

TEST_F(Status, ShowsTheDestinationsNameAndItsLastMessage) {
    const auto device = system.add({MidiObjectType::device, "Timecode Box", {}, {}});
    const auto entity = system.add({MidiObjectType::entity, {}, {}, {}, device});
    system.addDestination("MIDI 1", 11, entity);
    EXPECT_EQ(text(), "Timecode Box MIDI 1");
    shared().sendSetupMessageStart(0x01000000, rate::fps25, sync::mtc);
    EXPECT_EQ(text(), "Timecode Box MIDI 1 · start 01:00:00:00 · 2 s ago");
    shared().sendStopMessage();
    EXPECT_EQ(text(), "Timecode Box MIDI 1 · stop · 2 s ago");
    EXPECT_EQ(system.takeSent().size(), 3u) << "reading the status sends nothing";
}

TEST_F(Status, ALostMessageDoesNotCountAsSent) {
    const auto box = system.addDestination("Box", 11);
    shared().sendSetupMessageStart(0x01000000, rate::fps25, sync::mtc);
    system.unplug(box);
    EXPECT_EQ(text(), "Box is not there");
    shared().sendStopMessage();
    EXPECT_EQ(text(), "Box is not there");
    system.plugIn(box, 0);
    EXPECT_EQ(text(), "Box · start 01:00:00:00 · 2 s ago") << "the stop was lost";
    shared().sendStopMessage();
    EXPECT_EQ(text(), "Box · stop · 2 s ago");
}

TEST_F(Status, ALostMessageShowsThatTheDestinationIsGone) {
    const auto box = system.addDestination("Box", 11);
    EXPECT_EQ(text(), "Box");
    system.unplug(box); // unnoticed, as nothing has been sent there yet
    EXPECT_EQ(text(), "Box");
    shared().sendStopMessage();
    EXPECT_EQ(text(), "Box is not there");
}

TEST_F(Status, IsUnknownUntilTheSystemIsReached) {
    system.beOutOfReach();
    EXPECT_EQ(text(), "");
    system.reach();
    EXPECT_EQ(text(), "no destination");
    shared().sendStopMessage();
    EXPECT_EQ(text(), "no destination");
}

TEST_F(Status, IsThatOfTheLastChosenDestination) {
    const auto first = system.addDestination("A", 11);
    system.addDestination("B", 12);
    shared().sendSetupMessageStart(0x01000000, rate::fps25, sync::mtc);
    shared().destinationList();
    shared().connectToDestinationAtIndex(1);
    EXPECT_EQ(text(), "B · stop · 2 s ago");
    system.unplug(first);
    EXPECT_EQ(text(), "B · stop · 2 s ago");
    shared().connectToDestinationAtIndex(-1);
    EXPECT_EQ(text(), "no destination");
}

TEST_F(Status, ReportsChangesOnce) {
    const auto box = system.addDestination("Box", 11);
    int told = 0;
    QObject::connect(&shared(), &Vexa_MIDI_Manager::statusChanged, &shared(), [&] { ++told; });
    shared().sendStopMessage();
    EXPECT_EQ(told, 1);
    system.unplug(box);
    EXPECT_EQ(told, 2);
    shared().sendStopMessage();
    EXPECT_EQ(told, 2) << "already known to be gone";
    system.plugIn(box, 0);
    EXPECT_EQ(told, 3);
}

} // namespace
