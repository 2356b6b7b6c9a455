#pragma once

#include "generator/moment.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace vexa {

/// Seconds and microseconds of CLOCK_MONOTONIC, "12345.678901".
std::string momentText(Moment moment);

/// Writes the event lines and, on a terminal, keeps a status line below them. Flushes every line.
/// The streams must outlive the log.
class EventLog {
public:
    /// Size limit of the copy, in bytes, so that a flood of messages cannot fill a disk.
    static constexpr std::size_t mostCopied = 16 * 1024 * 1024;

    /// Writes all lines to `out` and, up to the size limit, to `copy`. Shows the status on `out` if
    /// that is a terminal.
    EventLog(std::ostream& out, bool outIsTerminal, std::ostream& copy);

    /// Clears the status line.
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    bool showsStatus() const { return m_outIsTerminal; }

    /// A line without a time.
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
