#include "app/terminal_outlets.h"

#include "midi/Vexa_MIDI_Manager.h"
#include "timecode/timecode.h"

#include <QSocketNotifier>

#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace vexa {

namespace {

std::uint64_t secondOf(const RunReport& report) {
    return unpack(static_cast<PackedTimecode>(report.time)).seconds;
}

/// Whether a line can be rewritten in place. If not, each update is a new line.
bool canOverwrite() {
    static const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    return isTerminal;
}

void writeLine(const std::string& text) {
    // Clears the rest of the line, since the previous text may have been longer. Wrapping is off,
    // because a wrapped line could not be overwritten.
    std::printf(canOverwrite() ? "\r\033[?7l%s\033[K\033[?7h" : "%s\n", text.c_str());
    std::fflush(stdout);
}

/// A line that is rewritten in place, or a line per second if the output is no terminal.
class TextProgress final : public ProgressOutput {
public:
    ~TextProgress() override { endLine(); }

    bool wantsFrame(std::uint64_t second) const override {
        return canOverwrite() || second != m_shownSecond;
    }
    void showFrame(const RunReport& report) override {
        m_shownSecond = secondOf(report);
        m_isLineOpen = true;
        writeLine(progressText(report));
    }
    void showPhase(const RunReport& report) override {
        if (report.phase != Phase::running)
            return;
        endLine();
        showFrame(report);
    }
    void showPause(const RunReport&, std::int64_t seconds) override {
        writeLine("next item in " + std::to_string(seconds) + " s");
    }
    void ask(const std::string& question) override { writeLine(question); }

private:
    void endLine() {
        if (std::exchange(m_isLineOpen, false) && canOverwrite())
            std::puts("");
    }

    bool m_isLineOpen = false;
    std::uint64_t m_shownSecond = UINT64_MAX;
};

/// A line with an object at each phase change and each second.
class JsonProgress final : public ProgressOutput {
public:
    explicit JsonProgress(const Vexa_MIDI_Manager& midiManager) : m_midiManager(midiManager) {}

    bool wantsFrame(std::uint64_t second) const override { return second != m_shownSecond; }
    void showFrame(const RunReport& report) override { showPhase(report); }
    void showPhase(const RunReport& report) override {
        m_shownSecond = secondOf(report);
        std::puts(progressJson(report, m_midiManager.status()).constData());
        std::fflush(stdout);
    }
    void showPause(const RunReport& report, std::int64_t) override { showPhase(report); }
    void ask(const std::string&) override {} // the phase says what is awaited

private:
    const Vexa_MIDI_Manager& m_midiManager;
    std::uint64_t m_shownSecond = UINT64_MAX;
};

} // namespace

std::unique_ptr<ProgressOutput> textProgress() { return std::make_unique<TextProgress>(); }

std::unique_ptr<ProgressOutput> jsonProgress(const Vexa_MIDI_Manager& midiManager) {
    return std::make_unique<JsonProgress>(midiManager);
}

int TerminalAlerts::runModal(const Alert& alert) {
    // Discards what was typed before the question. (This leaves a pipe's input alone.)
    tcflush(STDIN_FILENO, TCIFLUSH);
    auto question = alert.information;
    question.replace(alert.buttons.front(), QStringLiteral("Enter"));
    m_output.ask(question.toStdString() + ": ");
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &m_loop, [this] {
        char typed = 0; // byte by byte: the next line answers the next question
        if (read(STDIN_FILENO, &typed, 1) <= 0)
            m_loop.exit(alertUnanswered);
        else if (typed == '\n')
            m_loop.exit(alertFirstButton);
    });
    const int answer = m_loop.exec();
    m_unanswered = answer == alertUnanswered;
    return answer;
}

void Countdown::start(double seconds) {
    if (!(seconds > 0))
        return;
    constexpr double longest = 1e9; // keeps lround() in range
    seconds = std::min(seconds, longest);
    m_show(std::lround(std::ceil(seconds)));
    m_timer = m_runLoop.scheduleTimer(RunLoop::Seconds(1), false,
                                      [this, seconds] { start(seconds - 1); });
}

} // namespace vexa
