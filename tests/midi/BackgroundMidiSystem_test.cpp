#include "midi/BackgroundMidiTest.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

using namespace vexa;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using BackgroundMidi = test::BackgroundMidiTest;

TEST_F(BackgroundMidi, ShowsPortsAsATreeOfObjects) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    const auto second = system->destination(1);
    EXPECT_EQ(system->name(second), "MIDI 2");
    const auto entity = system->entityOfEndpoint(second);
    ASSERT_NE(entity, 0u);
    EXPECT_EQ(system->name(entity), std::nullopt);
    const auto device = system->deviceOfEntity(entity);
    EXPECT_EQ(system->name(device), "Box");
    EXPECT_EQ(system->numberOfEntities(device), 2u);
    EXPECT_EQ(system->connectionUniqueIds(second), std::nullopt);
}

TEST_F(BackgroundMidi, AProgramsPortHasNeitherEntityNorDevice) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    EXPECT_EQ(system->entityOfEndpoint(system->destination(2)), 0u);
    EXPECT_EQ(system->deviceOfEntity(0), 0u);
}

TEST_F(BackgroundMidi, UnknownObjectsHaveNoProperties) {
    EXPECT_EQ(system->destination(3), 0u);
    EXPECT_EQ(system->name(0), std::nullopt);
    EXPECT_EQ(system->name(99), std::nullopt);
    EXPECT_EQ(system->uniqueId(0), std::nullopt);
    EXPECT_FALSE(system->findByUniqueId(1));
    sendByte(0, 1);
    sendByte(99, 1);
    system.reset();
    EXPECT_THAT(world.sent, IsEmpty());
}

TEST_F(BackgroundMidi, APortThatReturnsAtAnotherAddressIsTheSameObject) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    const auto port = system->destination(0);
    const auto id = system->uniqueId(port).value();
    const auto there = world.ports[0];
    world.ports.erase(world.ports.begin());
    EXPECT_FALSE(system->findByUniqueId(id));
    EXPECT_EQ(system->uniqueId(port), id);
    world.ports.push_back(there);
    world.ports.back().address = "24:0";
    ASSERT_TRUE(system->findByUniqueId(id));
    EXPECT_EQ(system->findByUniqueId(id)->ref, port);
    EXPECT_EQ(system->destination(2), port);
}

/// Records what is reported of messages and of the destination, in order.
struct BackgroundReports : BackgroundMidi {
    BackgroundReports() {
        system->numberOfDestinations();
        system->whenSeen([this](MidiObjectRef destination, bool isThere) {
            told.push_back(nameOf(destination) + (isThere ? " is there" : " is away"));
        });
    }

    std::string nameOf(MidiObjectRef destination) { return system->name(destination).value(); }
    void send(MidiObjectRef destination) {
        const std::uint8_t byte = 1;
        system->send(destination, std::span(&byte, 1), [this, destination](const auto& delivery) {
            told.push_back(nameOf(destination) + (delivery.handedOver ? " took it" : " lost it"));
            at = delivery.at;
        });
    }
    void setPorts(std::vector<MidiPort> ports) {
        const std::lock_guard lock{world.mutex};
        world.ports = std::move(ports);
    }
    std::vector<std::string> next(std::size_t count) {
        while (told.size() < count)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return std::exchange(told, {});
    }

    std::vector<std::string> told;
    std::chrono::steady_clock::time_point at;
};

TEST_F(BackgroundReports, ReportsTheOutcomeOfAMessageAndWhetherItsDestinationIsThere) {
    const auto port = system->destination(0);
    const auto before = std::chrono::steady_clock::now();
    send(port);
    EXPECT_THAT(next(2), ElementsAre("MIDI 1 took it", "MIDI 1 is there"));
    EXPECT_GE(at, before);
    EXPECT_LE(at, std::chrono::steady_clock::now());
    send(port);
    EXPECT_THAT(next(1), ElementsAre("MIDI 1 took it"));
    setPorts({});
    send(port);
    EXPECT_THAT(next(2), ElementsAre("MIDI 1 lost it", "MIDI 1 is away"));
}

TEST_F(BackgroundReports, ReportsADestinationThatGoesAndReturnsWhileNothingIsSent) {
    send(system->destination(1));
    next(2);
    const auto ports = world.ports;
    setPorts({});
    EXPECT_THAT(next(1), ElementsAre("MIDI 2 is away"));
    setPorts(ports);
    EXPECT_THAT(next(1), ElementsAre("MIDI 2 is there"));
}

TEST_F(BackgroundReports, ReportsNothingOfAnUnknownDestination) {
    const std::uint8_t byte = 1;
    system->send(0, std::span(&byte, 1), [this](const auto&) { told.emplace_back("told"); });
    send(system->destination(0)); // reported later
    EXPECT_THAT(next(2), ElementsAre("MIDI 1 took it", "MIDI 1 is there"));
}

TEST_F(BackgroundReports, ReportsNothingAfterTheSystemHasEnded) {
    send(system->destination(0));
    system.reset();
    QCoreApplication::processEvents();
    EXPECT_THAT(told, IsEmpty());
}

/// A port of an interface whose maker gives all devices the same serial number.
MidiPort twin(const std::string& socket) {
    MidiPort port{"usb:1 at " + socket, "20:0", "MIDI 1", "usb:1 at " + socket, "Box"};
    port.identityInAnySocket = "usb:1";
    port.whereabouts = "serial number 1, socket " + socket;
    return port;
}

TEST_F(BackgroundMidi, TheChosenTwinKeepsItsIdInWhateverOrderTwinsComeAndGo) {
    const std::vector twins{twin("a"), twin("b"), twin("c")};
    openWith(twins);
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    const auto chosen = system->destination(0);
    const auto id = system->uniqueId(chosen).value();
    constexpr unsigned ways = 8;
    for (unsigned order = 0; order < ways * ways; ++order) {
        for (const auto there : {order % ways, order / ways}) {
            const std::lock_guard lock{world.mutex};
            world.ports.clear();
            for (std::size_t i = twins.size(); i-- > 0;)
                if (there >> i & 1)
                    world.ports.push_back(twins[i]);
        }
        system->numberOfDestinations();
        EXPECT_EQ(system->uniqueId(chosen), id);
        sendByte(chosen, 1);
        const auto found = system->findByUniqueId(id);
        EXPECT_EQ(found && found->ref == chosen, (order / ways & 1) != 0);
    }
    system.reset();
    EXPECT_EQ(world.sent, std::vector<std::string>(ways * ways, "usb:1 at a: 1"));
}

TEST_F(BackgroundMidi, AnIdDoesNotChangeWhenATwinArrives) {
    std::vector<MidiUniqueId> ids;
    for (const auto& ports : {std::vector{twin("a")}, {twin("b"), twin("a")}, {twin("a")}}) {
        openWith(ports);
        ASSERT_GE(system->numberOfDestinations(), 1u);
        ids.push_back(system->uniqueId(system->destination(ports.size() - 1)).value());
    }
    EXPECT_THAT(ids, ElementsAre(ids[0], ids[0], ids[0]));
}

TEST_F(BackgroundMidi, FindsADeviceInAnotherSocketIfNoOtherHasItsSerialNumber) {
    openWith({twin("a")});
    ASSERT_EQ(system->numberOfDestinations(), 1u);
    const auto id = system->uniqueId(system->destination(0)).value();
    const auto socketOfFound = [&]() -> std::string {
        const auto found = system->findByUniqueId(id);
        return found ? system->whereabouts(found->ref).value() : "none";
    };
    world.ports = {twin("b")};
    EXPECT_EQ(socketOfFound(), "serial number 1, socket b");
    world.ports = {twin("b"), twin("c")};
    EXPECT_EQ(socketOfFound(), "none");
    world.ports = {twin("b"), twin("c"), twin("a")};
    EXPECT_EQ(socketOfFound(), "serial number 1, socket a");
}

TEST_F(BackgroundMidi, DescribesWhereAlikePortsAre) {
    openWith({twin("a"), {"program:x", "128:0", "Soft", {}, {}}});
    ASSERT_EQ(system->numberOfDestinations(), 2u);
    EXPECT_EQ(system->whereabouts(system->destination(0)), "serial number 1, socket a");
    EXPECT_EQ(system->whereabouts(system->destination(1)), std::nullopt);
    EXPECT_EQ(system->whereabouts(0), std::nullopt);
}
} // namespace
