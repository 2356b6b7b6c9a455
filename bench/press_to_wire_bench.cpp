// Time from the Play command to the last byte of its messages. The byte is handed to a driver that
// accepts it at once, arrives at another JACK client, or is handed to the ALSA sequencer.
// Argument: the number of presses, by default 2000.

#include "app/TimerfdRunLoop.h"
#include "app/silent_outlets.h"
#include "bench/jack_receiver.h"
#include "bench/spread.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/BackgroundMidiSystem.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/alsa/AlsaMidiDriver.h"
#include "midi/jack/JackMidiDriver.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <semaphore>
#include <thread>

using namespace vexa;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

namespace {

/// Counts messages that have arrived.
class Arrivals {
public:
    void note() {
        m_last = Clock::now();
        m_arrived.release();
    }

    /// Waits for that many messages and returns when the last one came. Exits if one is lost.
    Clock::time_point await(int count) {
        while (count-- > 0)
            if (!m_arrived.try_acquire_for(2s)) {
                std::fputs("press_to_wire_bench: a message was lost\n", stderr);
                std::exit(1);
            }
        return m_last;
    }

private:
    Clock::time_point m_last;
    std::counting_semaphore<> m_arrived{0};
};

/// One port that accepts everything at once.
class ImmediateDriver final : public MidiDriver {
public:
    std::vector<MidiPort> ports() override { return {{"port", "0", "Port", {}, {}}}; }
    bool send(const std::string&, std::span<const std::uint8_t>) override { return true; }
    bool maintain() override { return true; }
};

/// Notes when the driver has handed over each message, and how long that took.
class TimedDriver final : public MidiDriver {
public:
    TimedDriver(std::unique_ptr<MidiDriver> driver, Arrivals& handedOver,
                std::vector<double>& sendTimes)
        : m_driver(std::move(driver)), m_handedOver(handedOver), m_sendTimes(sendTimes) {}

    std::vector<MidiPort> ports() override { return m_driver->ports(); }
    bool send(const std::string& identity, std::span<const std::uint8_t> message) override {
        const auto begin = Clock::now();
        const bool handedOver = m_driver->send(identity, message);
        m_sendTimes.push_back(Microseconds(Clock::now() - begin).count());
        m_handedOver.note();
        return handedOver;
    }
    bool maintain() override { return m_driver->maintain(); }

private:
    std::unique_ptr<MidiDriver> m_driver;
    Arrivals& m_handedOver;
    std::vector<double>& m_sendTimes;
};

class NoAlerts final : public Alerts {
    int runModal(const Alert&) override { return alertFirstButton; }
};

/// Presses Play repeatedly while stopped; returns the times until the last message's arrival.
std::vector<double> timesOfPresses(int presses, MidiSystem& midi, Arrivals& arrivals) {
    midi.numberOfDestinations(); // no event loop reports the first list
    Vexa_MIDI_Manager::setMidiSystem(&midi);
    SilentOutlets silent;
    SilentEntry clock;
    NoAlerts alerts;
    TimerfdRunLoop runLoop;
    Vexa_RemoteAppDelegate controller(silent.with(clock, alerts), runLoop);
    controller.applicationDidFinishLaunching(); // stops the device
    arrivals.await(1);

    std::mt19937 random; // spreads the presses over all phases of a server's period
    std::uniform_real_distribution<double> pause(0, 10'000);
    std::vector<double> times;
    while (presses-- > 0) {
        std::this_thread::sleep_for(Microseconds(pause(random)));
        const auto pressed = Clock::now();
        controller.handleStripeMenuItems(transport::playing);
        constexpr int messages = 3; // stop, setup, start
        times.push_back(Microseconds(arrivals.await(messages) - pressed).count());
        controller.handleStripeMenuItems(transport::stopped);
        arrivals.await(1);
    }
    return times;
}

void printRow(const char* what, const std::vector<double>& times) {
    const auto spread = bench::spreadOf(times);
    std::printf("| %s | %zu | %.0f | %.0f | %.0f |\n", what, times.size(), spread.p50, spread.p99,
                spread.max);
}

void measureDriver(const char* what, int presses, std::unique_ptr<MidiDriver> (*makeDriver)()) {
    Arrivals handedOver;
    std::vector<double> sendTimes;
    std::vector<double> times;
    {
        BackgroundMidiSystem midi(
            [&] { return std::make_unique<TimedDriver>(makeDriver(), handedOver, sendTimes); });
        if (midi.numberOfDestinations() == 0) {
            std::printf("| %s: no destination on this machine | | | | |\n", what);
            return;
        }
        times = timesOfPresses(presses, midi, handedOver);
    }
    printRow(what, times);
    printRow("… of these, one message's send() in the driver", sendTimes);
}

void measureJack(int presses) {
    const bench::JackServer server;
    if (!server.isUp()) {
        std::puts("| JACK: no server could be started on this machine | | | | |");
        return;
    }
    Arrivals arrivals;
    const bench::JackReceiver receiver([&] { arrivals.note(); });
    {
        BackgroundMidiSystem midi([] { return std::make_unique<JackMidiDriver>(); });
        printRow("arrived at another JACK client", timesOfPresses(presses, midi, arrivals));
    }
    measureDriver("handed to JACK", presses, []() -> std::unique_ptr<MidiDriver> {
        return std::make_unique<JackMidiDriver>();
    });
}

} // namespace

int main(int argc, char* argv[]) {
    // Neither uses nor changes the operator's settings.
    setenv("XDG_CONFIG_HOME", "/nonexistent", 1);
    const QCoreApplication application(argc, argv);
    const int presses = argc > 1 ? std::atoi(argv[1]) : 2000;
    if (presses < 1) {
        std::fputs("usage: press_to_wire_bench [presses]\n", stderr);
        return 2;
    }

    constexpr double period = 1e6 * bench::JackServer::period / bench::JackServer::sampleRate;
    std::printf("## From the press of Play to the last byte, in us\n\n"
                "Aim: p99 at a JACK client under one period and 1 ms, here %.0f us.\n\n"
                "| way | times | p50 | p99 | max |\n|---|---|---|---|---|\n",
                period + 1000);
    measureDriver(
        "handed to a driver that takes it at once", presses,
        []() -> std::unique_ptr<MidiDriver> { return std::make_unique<ImmediateDriver>(); });
    measureJack(presses);
    if (AlsaMidiDriver::isAvailable())
        measureDriver("handed to the ALSA sequencer", presses, []() -> std::unique_ptr<MidiDriver> {
            return std::make_unique<AlsaMidiDriver>();
        });
    else
        std::puts("| ALSA: no sequencer on this machine | | | | |");
}
