#include "app/terminal_stripe.h"

#include "app/termination_signals.h"
#include "engine/TimerfdRunLoop.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "engine/plain_outlets.h"

#include <QCoreApplication>

#include <unistd.h>

#include <cstdio>

namespace vexa {

namespace {

/// The clock in the terminal: one line that is written over, or a line a second where the output
/// goes to a file.
class TerminalClock final : public TimecodeDisplay {
public:
    void startLine(const std::string& line) {
        endLine();
        m_line = line;
    }

    void endLine() {
        if (m_isTerminal && m_lineOpen)
            std::puts("");
        m_lineOpen = false;
    }

protected:
    void timeFieldsChanged() override {
        if (m_line.empty())
            return;
        if (!m_isTerminal && seconds() == m_shownSecond)
            return;
        m_shownSecond = seconds();
        const auto time = timecodeText(timeFields());
        std::printf(m_isTerminal ? "\r%s %s" : "%s %s\n", m_line.c_str(), time.c_str());
        std::fflush(stdout);
        m_lineOpen = true;
    }

private:
    const bool m_isTerminal = isatty(STDOUT_FILENO) != 0;
    std::string m_line;
    bool m_lineOpen = false;
    std::uint64_t m_shownSecond = UINT64_MAX;
};

/// Nothing is asked in a single stripe.
class NoAlerts final : public Alerts {
    int runModal(const Alert&) override { return alertFirstButton; }
};

std::string describe(const Vexa_RemoteAppDelegate& controller) {
    auto text = timecodeText(unpack(static_cast<PackedTimecode>(controller.startTime())));
    text += controller.stopTimeSet()
                ? " to " + timecodeText(unpack(static_cast<PackedTimecode>(controller.stopTime())))
                : " on";
    text += ", ";
    text += frameRateForCode(controller.frameRate()).name;
    text += ", ";
    text += syncTypeName(controller.syncType());
    return text;
}

bool isValidHere(const char* what, const Timecode& time, const FrameRate& rate) {
    if (isValid(time, rate))
        return true;
    std::fprintf(stderr, "vexa-remote: there is no %s time %s at %s\n", what,
                 timecodeText(time).c_str(), std::string(rate.name).c_str());
    return false;
}

} // namespace

int stripeInTerminal(const CommandLine& line) {
    PlainOutlets plain;
    TerminalClock clock;
    NoAlerts alerts;
    auto outlets = plain.outlets(alerts);
    outlets.currentTimeButton = &clock;
    TimerfdRunLoop runLoop;
    Vexa_RemoteAppDelegate controller(outlets, runLoop);
    controller.applicationDidFinishLaunching();

    if (line.rate)
        controller.handleFrameRateMenuItems(*line.rate);
    if (line.type)
        controller.handleSyncTypeMenuItems(*line.type);
    const auto& rate = frameRateForCode(controller.frameRate());
    if (!isValidHere("start", *line.start, rate) ||
        (line.stop && !isValidHere("stop", *line.stop, rate)))
        return 2;
    const auto stop = pack(line.stop.value_or(Timecode{}));
    controller.setStartTime(pack(*line.start), stop, {});
    if (line.stop)
        controller.setStopTimeSet(true, stop, {});

    int exitCode = 0;
    const TerminationSignals signals([&] {
        exitCode = 130;
        controller.handleStripeMenuItems(transport::stopped);
    });
    QObject::connect(
        &controller, &Vexa_RemoteAppDelegate::stateChanged, qApp,
        [&] {
            if (controller.transportState() == transport::stopped)
                QCoreApplication::exit(exitCode);
        },
        Qt::QueuedConnection);

    clock.startLine(describe(controller));
    controller.handleStripeMenuItems(transport::playing);
    const int result = QCoreApplication::exec();
    clock.endLine();
    return result;
}

} // namespace vexa
