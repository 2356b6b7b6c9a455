#pragma once

#include "app/run_report.h"
#include "engine/outlets.h"
#include "stripe/RunLoop.h"

#include <QEventLoop>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vexa {

class Vexa_MIDI_Manager;

// What the controller sees of a terminal, and what else is shown there.

/// Where a run tells how it gets on.
class ProgressOutput {
public:
    virtual ~ProgressOutput() = default;

    /// Whether a frame of that second of the timecode is to be shown.
    virtual bool wantsFrame(std::uint64_t second) const = 0;
    virtual void showFrame(const RunReport& report) = 0;
    virtual void showPhase(const RunReport& report) = 0;
    /// At each second of a pause, with those that are left.
    virtual void showPause(const RunReport& report, std::int64_t seconds) = 0;
    /// Enter answers it.
    virtual void ask(const std::string& question) = 0;
};

std::unique_ptr<ProgressOutput> textProgress();
/// With what is known of the destination.
std::unique_ptr<ProgressOutput> jsonProgress(const Vexa_MIDI_Manager& midiManager);

/// Asks by the output and goes on at Enter, which stands for the first button.
class TerminalAlerts final : public Alerts {
public:
    explicit TerminalAlerts(ProgressOutput& output) : m_output(output) {}

    /// Unanswered when the input ends or dismiss() is called meanwhile.
    int runModal(const Alert& alert) override;
    void dismiss() { m_loop.exit(alertUnanswered); }
    /// Whether the last question went unanswered.
    bool wentUnanswered() const { return m_unanswered; }

private:
    ProgressOutput& m_output;
    bool m_unanswered = false;
    QEventLoop m_loop;
};

/// Counts the seconds of a pause down, in steps of one. Not at all from 0 or less.
class Countdown {
public:
    /// The run loop must outlive this.
    Countdown(RunLoop& runLoop, std::function<void(std::int64_t seconds)> show)
        : m_runLoop(runLoop), m_show(std::move(show)) {}
    void start(double seconds);
    void stop() { m_timer.reset(); }

private:
    RunLoop& m_runLoop;
    const std::function<void(std::int64_t)> m_show;
    std::unique_ptr<RunLoopTimer> m_timer;
};

} // namespace vexa
