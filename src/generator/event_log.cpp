#include "generator/event_log.h"

#include <iomanip>
#include <ostream>
#include <sstream>

namespace vexa {

namespace {
/// Returns to the first column and erases the line (ECMA-48 EL).
constexpr std::string_view clearLine = "\r\x1B[K";

constexpr std::string_view lastOfCopy = "full: nothing more is written here";
} // namespace

std::string momentText(Moment moment) {
    using std::chrono::microseconds;
    const auto micros = std::chrono::floor<microseconds>(moment.time_since_epoch()).count();
    std::ostringstream text;
    text << micros / 1000000 << '.' << std::setw(6) << std::setfill('0') << micros % 1000000;
    return text.str();
}

EventLog::EventLog(std::ostream& out, bool outIsTerminal, std::ostream& copy)
    : m_out(out), m_outIsTerminal(outIsTerminal), m_copy(copy) {}

EventLog::~EventLog() {
    if (m_outIsTerminal)
        m_out << clearLine << std::flush;
}

void EventLog::note(std::string_view text) {
    if (m_outIsTerminal)
        m_out << clearLine;
    m_out << text << '\n' << m_status << std::flush;
    copy(text);
}

void EventLog::copy(std::string_view text) {
    if (m_copyIsFull)
        return;
    m_copied += text.size() + 1;
    m_copyIsFull = m_copied + lastOfCopy.size() + 1 > mostCopied;
    m_copy << (m_copyIsFull ? lastOfCopy : text) << '\n' << std::flush;
}

void EventLog::event(Moment moment, std::string_view text) {
    note(momentText(moment) + "  " + std::string(text));
}

void EventLog::status(std::string_view text) {
    if (!m_outIsTerminal || text == m_status)
        return;
    m_status = text;
    m_out << clearLine << m_status << std::flush;
}

} // namespace vexa
