#pragma once

#include "generator/moment.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace vexa {

/// Seconds and microseconds of CLOCK_MONOTONIC, "12345.678901".
std::string momentText(Moment moment);

/// Writes the event lines, and on a terminal keeps a status line below them. Every line is
/// flushed. The streams outlive the log.
class EventLog {
public:
    /// The bound of the copy, in bytes: a flood of messages is not to fill a disk.
    static constexpr std::size_t mostCopied = 16 * 1024 * 1024;

    /// The same lines go to `out` and, as far as its bound, to `copy`; the status goes to `out` if
    /// that is a terminal.
    EventLog(std::ostream& out, bool outIsTerminal, std::ostream& copy);

    /// Clears the status line away.
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    bool showsStatus() const { return m_outIsTerminal; }

    /// A line that belongs to no moment.
    void note(std::string_view text);

    void event(Moment moment, std::string_view text);

    /// Replaces the status line.
    void status(std::string_view text);

private:
    void copy(std::string_view text);

    std::ostream& m_out;
    bool m_outIsTerminal;
    std::ostream& m_copy;
    std::size_t m_copied = 0; ///< in bytes
    bool m_copyIsFull = false;
    std::string m_status;
};

} // namespace vexa
