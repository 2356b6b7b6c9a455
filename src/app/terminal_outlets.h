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

// The controller's outlets in a terminal, and the progress output.

/// Shows the progress of a run.
class ProgressOutput {
public:
    virtual ~ProgressOutput() = default;

    /// Whether to show a frame with this second of the timecode.
    virtual bool wantsFrame(std::uint64_t second) const = 0;
    virtual void showFrame(const RunReport& report) = 0;
    virtual void showPhase(const RunReport& report) = 0;
    /// Called each second of a pause, with the seconds left.
    virtual void showPause(const RunReport& report, std::int64_t seconds) = 0;
    /// The operator answers with Enter.
    virtual void ask(const std::string& question) = 0;
};

std::unique_ptr<ProgressOutput> textProgress();
/// Includes the state of the destination.
std::unique_ptr<ProgressOutput> jsonProgress(const Vexa_MIDI_Manager& midiManager);

/// Asks through the output. Enter stands for the first button.
class TerminalAlerts final : public Alerts {
public:
    explicit TerminalAlerts(ProgressOutput& output) : m_output(output) {}

    /// Returns alertUnanswered if the input ends or dismiss() is called.
    int runModal(const Alert& alert) override;
    void dismiss() { m_loop.exit(alertUnanswered); }
    /// Whether the last question went unanswered.
    bool wentUnanswered() const { return m_unanswered; }

private:
    ProgressOutput& m_output;
    bool m_unanswered = false;
    QEventLoop m_loop;
};

/// Counts down the seconds of a pause. Does nothing for 0 or less.
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
