#pragma once

#include "engine/outlets.h"
#include "stripe/RunLoop.h"

#include <QEventLoop>

#include <memory>
#include <string>

namespace vexa {

// What the controller sees of a terminal, and what else is shown there.

/// The clock in the terminal: one line that is written over, or a line a second where the output
/// goes to a file.
class TerminalClock final : public TimecodeDisplay {
public:
    /// What the lines from now on begin with; none are written while it is empty.
    void setHeading(const std::string& heading);

    void setBcdValue(std::uint64_t value) override;
    void setFrameRate(const FrameRate&) override {}
    /// What the line last said stays: it is a time of the stripe that it speaks of.
    void frameRateChanged() override {}

private:
    std::string m_heading;
    bool m_lineOpen = false;
    std::uint64_t m_shownSecond = UINT64_MAX;
};

/// Asks on standard output and goes on at Enter, which stands for the first button.
class TerminalAlerts final : public Alerts {
public:
    /// Unanswered when the input ends or dismiss() is called meanwhile.
    int runModal(const Alert& alert) override;
    void dismiss() { m_loop.exit(alertUnanswered); }
    /// Whether the last question went unanswered.
    bool wentUnanswered() const { return m_unanswered; }

private:
    bool m_unanswered = false;
    QEventLoop m_loop;
};

/// Counts the seconds of a pause down, in steps of one. Not at all from 0 or less.
class Countdown {
public:
    /// The run loop must outlive this.
    explicit Countdown(RunLoop& runLoop) : m_runLoop(runLoop) {}
    void start(double seconds);
    void stop() { m_timer.reset(); }

private:
    RunLoop& m_runLoop;
    std::unique_ptr<RunLoopTimer> m_timer;
};

} // namespace vexa
