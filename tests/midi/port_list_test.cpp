#include "midi/port_list.h"

#include <gmock/gmock.h>

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

TEST(PortList, StripsALeadingDeviceName) {
    EXPECT_EQ(withoutLeadingName("UM-ONE MIDI 1", "UM-ONE"), "MIDI 1");
    EXPECT_EQ(withoutLeadingName("UM-ONE", "UM-ONE"), "UM-ONE");
    EXPECT_EQ(withoutLeadingName("UM-ONE2 MIDI 1", "UM-ONE"), "UM-ONE2 MIDI 1");
    EXPECT_EQ(withoutLeadingName("MIDI 1", "UM-ONE"), "MIDI 1");
}

} // namespace
