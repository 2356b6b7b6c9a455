#include "midi/BackgroundMidiSystem.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

using namespace vexa;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

namespace {

/// What the driver finds and what it was told to send; shared with the test's thread.
struct World {
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<MidiPort> ports;
    std::vector<std::string> sent; ///< "identity: first byte"
    bool held = false;             ///< the driver's next call waits
    std::atomic<int> drivers = 0;
    int readings = 0;
    std::thread::id thread;

    void hold(bool hold) {
        const std::lock_guard lock{mutex};
        held = hold;
        changed.notify_all();
    }
};

class WorldDriver final : public MidiDriver {
public:
    explicit WorldDriver(World& world) : m_world(world) { ++m_world.drivers; }
    ~WorldDriver() override { --m_world.drivers; }

    std::vector<MidiPort> ports() override {
        std::unique_lock lock{m_world.mutex};
        m_world.thread = std::this_thread::get_id();
        ++m_world.readings;
        m_world.changed.wait(lock, [this] { return !m_world.held; });
        return m_world.ports;
    }
    bool send(const std::string& identity, std::span<const std::uint8_t> message) override {
        std::unique_lock lock{m_world.mutex};
        m_world.changed.wait(lock, [this] { return !m_world.held; });
        m_world.sent.push_back(identity + ": " + std::to_string(message.front()));
        m_wanted = identity;
        return isThere();
    }
    bool maintain() override {
        const std::lock_guard lock{m_world.mutex};
        return isThere();
    }

private:
    bool isThere() const {
        return std::ranges::count(m_world.ports, m_wanted, &MidiPort::identity) > 0;
    }

    World& m_world;
    std::string m_wanted;
};

struct BackgroundMidi : testing::Test {
    BackgroundMidi() {
        world.ports = {{"usb1/0", "20:0", "MIDI 1", "usb1", "Box"},
                       {"usb1/1", "20:1", "MIDI 2", "usb1", "Box"},
                       {"program:x", "128:0", "Soft", {}, {}}};
        open();
    }

    void open() {
        system = std::make_unique<BackgroundMidiSystem>(
            [this] { return std::make_unique<WorldDriver>(world); });
    }

    /// Opens another system, which finds these ports.
    void openWith(std::vector<MidiPort> ports) {
        system.reset();
        world.ports = std::move(ports);
        open();
    }

    void sendByte(MidiObjectRef destination, std::uint8_t byte) {
        system->send(destination, std::span(&byte, 1));
    }

    World world;
    std::unique_ptr<BackgroundMidiSystem> system;
};

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

TEST_F(BackgroundMidi, MessagesKeepTheirOrderAcrossDestinations) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    std::vector<std::string> expected;
    for (int i = 0; i < 200; ++i) {
        const auto byte = static_cast<std::uint8_t>(i);
        sendByte(system->destination(i % 2 ? 0 : 2), byte);
        expected.push_back((i % 2 ? "usb1/0: " : "program:x: ") + std::to_string(byte));
    }
    system.reset();
    EXPECT_EQ(world.sent, expected);
}

TEST_F(BackgroundMidi, ABlockedDriverDoesNotBlockTheCaller) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    const auto port = system->destination(0);
    world.hold(true);
    for (int i = 0; i < 3; ++i)
        sendByte(port, static_cast<std::uint8_t>(i));
    EXPECT_EQ(system->numberOfDestinations(), 3u) << "the previous list";
    EXPECT_THAT(world.sent, IsEmpty());
    world.hold(false);
    system.reset();
    EXPECT_THAT(world.sent, ElementsAre("usb1/0: 0", "usb1/0: 1", "usb1/0: 2"));
}

TEST_F(BackgroundMidi, WhatWasSentCanBeAwaited) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    world.hold(true);
    sendByte(system->destination(0), 1);
    const std::jthread release([this] { world.hold(false); });
    system->awaitSent();
    EXPECT_THAT(world.sent, ElementsAre("usb1/0: 1"));
}

TEST_F(BackgroundMidi, WhatWaitsForTheSystemCanBeAwaited) {
    system.reset();
    world.hold(true);
    open();
    system->whenReached([this] { sendByte(system->destination(2), 7); });
    const std::jthread release([this] { world.hold(false); });
    system->awaitSent();
    EXPECT_THAT(world.sent, ElementsAre("program:x: 7"));
    QCoreApplication::processEvents(); // the thread's own call comes too late
    EXPECT_THAT(world.sent, ElementsAre("program:x: 7"));
}

TEST_F(BackgroundMidi, ABlockedDriverIsAwaitedOnceAndOnlyForAMoment) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    world.hold(true);
    sendByte(system->destination(0), 1);
    const auto begin = std::chrono::steady_clock::now();
    system->awaitSent();
    const auto once = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i)
        system->awaitSent();
    EXPECT_LT(std::chrono::steady_clock::now() - once, 50 * (once - begin));
    EXPECT_THAT(world.sent, IsEmpty());
    world.hold(false);
}

TEST_F(BackgroundMidi, ReadsTheFirstListAtOnceAndWaitsLongerForIt) {
    system.reset();
    world.readings = 0;
    world.hold(true);
    open();
    const std::jthread release([this] {
        std::this_thread::sleep_for(600ms); // more than twice the wait for later lists
        world.hold(false);
    });
    EXPECT_EQ(system->numberOfDestinations(), 3u);
    EXPECT_EQ(world.readings, 1);
}

TEST_F(BackgroundMidi, WhenReachedCallsBackAtOnceIfTheListIsKnown) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    bool isCalled = false;
    system->whenReached([&] { isCalled = true; });
    EXPECT_TRUE(isCalled);
}

TEST_F(BackgroundMidi, WhenReachedCallsBackInOrderOnceTheListIsKnownWithoutBlocking) {
    system.reset();
    world.hold(true);
    open();
    std::vector<std::string> calls;
    system->whenReached([&] {
        calls.push_back("first");
        system->whenReached([&] { calls.push_back("from within"); });
        EXPECT_TRUE(system->destination(2));
    });
    system->whenReached([&] { calls.push_back("second"); });
    EXPECT_EQ(system->numberOfDestinations(), 0u);
    EXPECT_THAT(calls, IsEmpty());
    world.hold(false);
    while (calls.size() < 3)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_THAT(calls, ElementsAre("first", "from within", "second"));
    EXPECT_EQ(system->numberOfDestinations(), 3u);
}

TEST_F(BackgroundMidi, WhenReachedDoesNotCallBackAfterTheSystemHasEnded) {
    system.reset();
    world.hold(true);
    open();
    system->whenReached([] { ADD_FAILURE() << "called"; });
    system.reset();
    world.hold(false);
    while (world.drivers != 0)
        std::this_thread::yield();
    QCoreApplication::processEvents();
}

TEST_F(BackgroundMidi, ABlockedDriverIsAskedForTheListOnlyOnce) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    world.hold(true);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(system->numberOfDestinations(), 3u);
    world.ports.pop_back();
    world.hold(false);
    while (system->numberOfDestinations() == 3u)
        std::this_thread::yield();
    EXPECT_EQ(system->numberOfDestinations(), 2u);
    EXPECT_EQ(world.readings, 4) << "one before, one during, one after, and one more";
}

TEST_F(BackgroundMidi, TheDriverRunsOnItsOwnThreadAndEndsWithTheSystem) {
    system->numberOfDestinations();
    EXPECT_NE(world.thread, std::this_thread::get_id());
    EXPECT_EQ(world.drivers, 1);
    system.reset();
    EXPECT_EQ(world.drivers, 0);
}

TEST_F(BackgroundMidi, ABlockedDriverDoesNotKeepTheSystemFromEnding) {
    ASSERT_EQ(system->numberOfDestinations(), 3u);
    world.hold(true);
    sendByte(system->destination(0), 1);
    system.reset();
    EXPECT_EQ(world.drivers, 1);
    world.hold(false);
    while (world.drivers != 0)
        std::this_thread::yield();
}

} // namespace
