#include "midi/port_list.h"

#include <gmock/gmock.h>

#include <set>

using namespace vexa;
using testing::ElementsAre;

namespace {

MidiPort port(const std::string& identity, const std::string& name = {},
              const std::string& deviceName = {}) {
    return {identity, {}, name, {}, deviceName};
}

std::vector<std::string> identities(const std::vector<MidiPort>& ports) {
    std::vector<std::string> all;
    for (const auto& entry : ports)
        all.push_back(entry.identity);
    return all;
}

TEST(PortList, PutsMidiThroughLastAndKeepsTheOrderOfTheRest) {
    std::vector ports{port("t", "Port-0", "Midi Through"), port("b", "B"),
                      port("t2", "Midi Through Port-1"), port("a", "A")};
    putMidiThroughLast(ports);
    EXPECT_THAT(identities(ports), ElementsAre("b", "a", "t", "t2"));
}

TEST(PortList, NumbersRepeatedIdentitiesFromTheSecondOn) {
    std::vector ports{port("x"), port("y"), port("x"), port("x")};
    numberRepeatedIdentities(ports);
    EXPECT_THAT(identities(ports), ElementsAre("x", "y", "x#2", "x#3"));
}

TEST(PortList, IdsDependOnTheIdentityOnly) {
    const auto first = uniqueIds({port("a"), port("b")});
    const auto second = uniqueIds({port("b"), port("c"), port("a")});
    EXPECT_EQ(first[0], second[2]);
    EXPECT_EQ(first[1], second[0]);
    EXPECT_NE(first[0], first[1]);
}

TEST(PortList, IdsStayWhatTheyAreFromReleaseToRelease) {
    // They are written into the operator's settings.
    EXPECT_THAT(uniqueIds({port("program:Vexa Generator/Vexa Generator"),
                           port("usb:1d6b:0104:at 1-1:00/1")}),
                ElementsAre(1299922810, -1608722274));
}

TEST(PortList, IdsAreNever0AndDifferWithinAList) {
    std::vector<MidiPort> ports;
    for (int i = 0; i < 200000; ++i) // enough for collisions of 32 bits
        ports.push_back(port("port " + std::to_string(i)));
    const auto ids = uniqueIds(ports);
    const std::set<MidiUniqueId> different(ids.begin(), ids.end());
    EXPECT_EQ(different.size(), ports.size());
    EXPECT_FALSE(different.contains(0));
}

TEST(PortList, ALeadingDeviceNameIsTakenOff) {
    EXPECT_EQ(withoutLeadingName("UM-ONE MIDI 1", "UM-ONE"), "MIDI 1");
    EXPECT_EQ(withoutLeadingName("UM-ONE", "UM-ONE"), "UM-ONE");
    EXPECT_EQ(withoutLeadingName("UM-ONE2 MIDI 1", "UM-ONE"), "UM-ONE2 MIDI 1");
    EXPECT_EQ(withoutLeadingName("MIDI 1", "UM-ONE"), "MIDI 1");
}

} // namespace
