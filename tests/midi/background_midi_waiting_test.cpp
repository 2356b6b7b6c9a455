#include "midi/BackgroundMidiTest.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

#include <chrono>
#include <thread>

using namespace vexa;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

namespace {

using BackgroundMidi = test::BackgroundMidiTest;

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
