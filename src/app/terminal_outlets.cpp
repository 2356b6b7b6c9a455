#include "app/terminal_outlets.h"

#include "timecode/timecode.h"

#include <QSocketNotifier>

#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vexa {

namespace {

/// Where a line can be written over; elsewhere every state of it is a line of its own.
bool canOverwrite() {
    static const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    return isTerminal;
}

void writeLine(const std::string& text) {
    // Erases to the end: the line before may have been longer.
    std::printf(canOverwrite() ? "\r%s\033[K" : "%s\n", text.c_str());
    std::fflush(stdout);
}

} // namespace

void TerminalClock::setHeading(const std::string& heading) {
    if (m_lineOpen && canOverwrite())
        std::puts("");
    m_lineOpen = false;
    m_shownSecond = UINT64_MAX;
    m_heading = heading;
}

void TerminalClock::setBcdValue(std::uint64_t value) {
    const auto time = unpack(static_cast<PackedTimecode>(value));
    if (m_heading.empty() || (!canOverwrite() && time.seconds == m_shownSecond))
        return;
    m_shownSecond = time.seconds;
    m_lineOpen = true;
    writeLine(m_heading + "  " + timecodeText(time));
}

int TerminalAlerts::runModal(const Alert& alert) {
    // What was typed before the question is no answer to it. (In a pipe it stays.)
    tcflush(STDIN_FILENO, TCIFLUSH);
    auto question = alert.information;
    question.replace(alert.buttons.front(), QStringLiteral("Enter"));
    writeLine(question.toStdString() + ": ");
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &m_loop, [this] {
        char typed = 0; // one at a time: the next line is for the next question
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
    constexpr double longest = 1e9; // no pause lasts longer
    seconds = std::min(seconds, longest);
    writeLine("next item in " + std::to_string(std::lround(std::ceil(seconds))) + " s");
    m_timer = m_runLoop.scheduleTimer(RunLoop::Seconds(1), false,
                                      [this, seconds] { start(seconds - 1); });
}

} // namespace vexa
