#pragma once

#include "midi/BackgroundMidiSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace vexa::test {

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

struct BackgroundMidiTest : testing::Test {
    BackgroundMidiTest() {
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

} // namespace vexa::test
