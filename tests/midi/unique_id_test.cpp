#include "midi/unique_id.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

MidiPort port(const std::string& identity) { return {identity, {}, {}, {}, {}}; }

/// A port of a USB interface with that serial number in that socket.
MidiPort usbPort(const std::string& serial, const std::string& socket, int number = 1) {
    const auto name = "usb:1d6b:0104:" + serial + ":00";
    const auto end = '/' + std::to_string(number);
    auto made = port(name + " at " + socket + end);
    made.identityInAnySocket = name + end;
    return made;
}

TEST(UniqueId, IsTheSameInEveryRelease) {
    // Operators' settings contain these IDs, so they must not change.
    EXPECT_EQ(uniqueId(port("program:Vexa Generator/Vexa Generator"), {}), 1299922810);
    EXPECT_EQ(uniqueId(port("usb:1d6b:0104:at 1-1:00/1"), {}), -1608722274);
    EXPECT_EQ(uniqueId(usbPort("A1", "0000:00:14.0-2"), {}), -505933833);
}

TEST(UniqueId, IsNeither0NorTaken) {
    std::set<MidiUniqueId> taken;
    for (int i = 0; i < 200000; ++i) // enough for 32-bit collisions
        EXPECT_TRUE(taken.insert(uniqueId(port("port " + std::to_string(i)), taken)).second);
    EXPECT_FALSE(taken.contains(0));
}

TEST(UniqueId, DiffersForTwinsInDifferentSockets) {
    std::set<MidiUniqueId> ids;
    for (int socket = 1; socket <= 20; ++socket)
        ids.insert(uniqueId(usbPort("0001", "0000:00:14.0-" + std::to_string(socket)), {}));
    EXPECT_EQ(ids.size(), 20u);
}

TEST(MayHaveBeen, FindsASerialNumberInAnotherSocket) {
    const auto id = uniqueId(usbPort("A1", "0000:00:14.0-2"), {});
    EXPECT_TRUE(mayHaveBeen(id, usbPort("A1", "0000:00:1a.0-1.4")));
    EXPECT_FALSE(mayHaveBeen(id, usbPort("B2", "0000:00:14.0-2")));
    EXPECT_FALSE(mayHaveBeen(id, port("usb:1d6b:0104:A1:00 at 0000:00:14.0-2/1")));
    for (int other = 2; other <= 16; ++other)
        EXPECT_FALSE(mayHaveBeen(id, usbPort("A1", "0000:00:1a.0-1.4", other)));
}

TEST(MayHaveBeen, AcceptsTheIdsOfEarlierVersions) {
    const auto box = usbPort("A1", "0000:00:14.0-2");
    const auto alone = uniqueId(port("usb:1d6b:0104:A1:00/1"), {});
    const auto withATwin = uniqueId(port("usb:1d6b:0104:A1:00 at 0000:00:14.0-2/1"), {});
    EXPECT_TRUE(mayHaveBeen(alone, box));
    EXPECT_TRUE(mayHaveBeen(withATwin, box));
    EXPECT_FALSE(mayHaveBeen(withATwin, usbPort("A1", "0000:00:14.0-3")));
    EXPECT_FALSE(mayHaveBeen(uniqueId(port("usb:1d6b:0104:A1:00/0"), {}), box)) << "its neighbour";
}

} // namespace
