// Accuracy of the clock: the program's timer at every frame rate against CLOCK_MONOTONIC, with
// QTimer beside it. Measures first as the machine is, then with every processor busy. Argument: the
// number of seconds, by default 60.

#include "app/TimerfdRunLoop.h"
#include "bench/spread.h"
#include "timecode/frame_rate.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

using namespace vexa;
using bench::Spread;
using Seconds = RunLoop::Seconds;
using Clock = std::chrono::steady_clock;

namespace {

struct Ticks {
    Seconds interval;
    Clock::time_point start = Clock::now();
    std::vector<Clock::time_point> fired{};

    void note() { fired.push_back(Clock::now()); }
};

/// Times in milliseconds.
struct Figures {
    long lost; ///< negative if there were too many
    double drift;
    Spread off; ///< deviation of ticks from their due time
};

Figures figuresOf(const Ticks& ticks) {
    constexpr double msPerSecond = 1e3;
    std::vector<double> lateness;
    std::vector<double> off;
    for (const auto tick : ticks.fired) {
        const Seconds due = ticks.interval * static_cast<double>(lateness.size() + 1);
        lateness.push_back((Seconds(tick - ticks.start) - due).count() * msPerSecond);
        off.push_back(std::abs(lateness.back()));
    }
    // Compares medians over one second each, as a single late tick is no drift.
    const auto second = static_cast<std::ptrdiff_t>(1.0 / ticks.interval.count());
    const double first = bench::spreadOf({lateness.begin(), lateness.begin() + second}).p50;
    const double last = bench::spreadOf({lateness.end() - second, lateness.end()}).p50;
    const auto due = std::lround(Seconds(ticks.fired.back() - ticks.start) / ticks.interval);
    return {due - static_cast<long>(ticks.fired.size()), last - first, bench::spreadOf(off)};
}

void printFigures(const Figures& figures) {
    std::printf(" %ld | %.3f | %.3f | %.3f | %.3f |", figures.lost, figures.drift, figures.off.p50,
                figures.off.p99, figures.off.max);
}

void printTable(const char* title, const std::vector<Ticks>& ours, const std::vector<Ticks>& qt,
                Seconds measured) {
    std::printf(
        "## %s: %.0f s at every rate, in ms against CLOCK_MONOTONIC\n\n"
        "Aim: no tick lost, drift under 2 ms in a minute. Off: how far a tick was from its "
        "time.\n\n"
        "| rate | lost | drift | off p50 | p99 | max | QTimer: lost | drift | off p50 | p99 "
        "| max | drift, QTimer : ours |\n"
        "|---|---|---|---|---|---|---|---|---|---|---|---|\n",
        title, measured.count());
    for (std::uint64_t code = 0; code < rate::count; ++code) {
        const auto mine = figuresOf(ours[code]);
        const auto other = figuresOf(qt[code]);
        std::printf("| %s |", std::string(frameRateForCode(code).name).c_str());
        printFigures(mine);
        printFigures(other);
        constexpr double least = 0.001; // our smallest value in the table
        std::printf(" %.0f |\n", std::abs(other.drift) / std::max(std::abs(mine.drift), least));
    }
}

void measure(const char* title, Seconds measured) {
    TimerfdRunLoop runLoop;
    std::vector<Ticks> ours;
    std::vector<Ticks> qt;
    for (std::uint64_t code = 0; code < rate::count; ++code)
        for (auto* kind : {&ours, &qt})
            kind->push_back({Seconds(frameRateForCode(code).frameInterval)});

    std::vector<std::unique_ptr<RunLoopTimer>> timers;
    std::vector<std::unique_ptr<QTimer>> qtTimers;
    for (auto& ticks : ours) {
        ticks.start = Clock::now();
        timers.push_back(runLoop.scheduleTimer(ticks.interval, true, [&] { ticks.note(); }));
    }
    for (auto& ticks : qt) {
        auto& timer = *qtTimers.emplace_back(std::make_unique<QTimer>());
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, [&] { ticks.note(); });
        ticks.start = Clock::now();
        timer.start(std::chrono::round<std::chrono::milliseconds>(ticks.interval));
    }
    const auto end = runLoop.scheduleTimer(measured, false, [] { QCoreApplication::quit(); });
    QCoreApplication::exec();
    printTable(title, ours, qt, measured);
}

/// Keeps every processor busy while the result exists.
std::vector<std::jthread> busyProcessors() {
    std::vector<std::jthread> busy(std::thread::hardware_concurrency());
    for (auto& thread : busy)
        thread = std::jthread([](const std::stop_token& stop) {
            while (!stop.stop_requested()) {
            }
        });
    return busy;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const Seconds measured(argc > 1 ? std::atof(argv[1]) : 60.0);
    if (measured < Seconds(2)) {
        std::fputs("usage: clock_bench [seconds, 2 or more]\n", stderr);
        return 2;
    }

    measure("Clock", measured);
    const auto busy = busyProcessors();
    std::puts("");
    measure("Clock beside busy processors", measured);
}
