#include "app/destination_choice.h"
#include "support/FakeMidiSystem.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;

namespace {

struct DestinationChoice : testing::Test {
    DestinationChoice() {
        system.addDestination("Hub Port 1", 700);
        system.addDestination("Hub Port 2", 2);
        box = system.addDestination("Timecode Box", -1608722274);
    }

    std::int64_t position(const QString& name) {
        const auto found = destinationNamed(name, system);
        const auto* at = std::get_if<std::int64_t>(&found);
        return at ? *at : -1;
    }

    FakeMidiSystem system;
    MidiObjectRef box;
};

TEST_F(DestinationChoice, IsAPositionOrPartOfOneName) {
    EXPECT_EQ(position(u"0"_s), 0);
    EXPECT_EQ(position(u"2"_s), 2);
    EXPECT_EQ(position(u"box"_s), 2);
    EXPECT_EQ(position(u"PORT 2"_s), 1);
    EXPECT_EQ(position(u"Hub"_s), -1);
    EXPECT_EQ(position(u"synth"_s), -1);
    EXPECT_EQ(position(u"3"_s), -1) << "no such position, and no name with a 3 in it";
    EXPECT_EQ(position(u"-1"_s), -1);
}

TEST_F(DestinationChoice, IsAnIdThatIsNoPosition) {
    EXPECT_EQ(position(u"700"_s), 0);
    EXPECT_EQ(position(u"-1608722274"_s), 2);
    EXPECT_EQ(position(u"4294967996"_s), -1) << "700 and 2 to the power of 32";
    system.unplug(box);
    EXPECT_EQ(position(u"-1608722274"_s), -1);
}

TEST_F(DestinationChoice, IsFoundByAnIdFromEarlierOn) {
    system.object(box).earlierId = 900;
    EXPECT_EQ(position(u"900"_s), 2);
}

TEST_F(DestinationChoice, SaysWhatItFound) {
    const auto message = [&](const QString& name) {
        return std::get<CommandLineError>(destinationNamed(name, system)).message.toStdString();
    };
    EXPECT_EQ(message(u"synth"_s), "no MIDI destination matches \"synth\"");
    EXPECT_EQ(message(u"hub"_s),
              "\"hub\" matches 2 MIDI destinations: Hub Port 1 (ID 700), Hub Port 2 (ID 2)");
}

TEST_F(DestinationChoice, IsMadeFromATable) {
    system.object(box).whereabouts = "serial number A1, socket 2";
    EXPECT_EQ(destinationTable(system),
              "0\t700\tHub Port 1\n"
              "1\t2\tHub Port 2\n"
              "2\t-1608722274\tTimecode Box\tserial number A1, socket 2\n");
}

TEST_F(DestinationChoice, IsMadeFromATableThatNoNameCanForge) {
    system.object(box).name = "a\n3\t5\tTimecode Box\x1B[1A";
    system.object(box).whereabouts = "serial number \n, socket 2";
    const auto table = destinationTable(system);
    EXPECT_TRUE(table.ends_with("2\t-1608722274\ta\\x0A3\\x095\\x09Timecode Box\\x1B[1A\t"
                                "serial number \\x0A, socket 2\n"))
        << table;
}

} // namespace
