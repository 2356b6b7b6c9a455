#pragma once

#include "files/FileDescriptor.h"
#include "stripe/StripeRun.h"

#include <QDateTime>
#include <QObject>
#include <QString>

#include <optional>
#include <string>

namespace vexa {

/// One line of comma-separated values.
struct LogLine {
    std::size_t row = 0;  ///< from 1; 0 where no item of a list was striped
    BatchItem item{};     ///< as planned
    bool hasStop = false; ///< whether a stop time was planned
    std::uint64_t realStart = 0;
    std::uint64_t realStop = 0;
    QDateTime began{};
    QDateTime ended{};
    bool isComplete = false;
};
/// With the end of the line. Titles are one line, and no spreadsheet takes one for a formula.
std::string logText(const LogLine& line);

/// Appends a line to a file for each stripe and each item of a run, as it ends. What cannot be
/// written is complained of once; the run goes on. Main thread only.
class RunLog : public QObject {
public:
    /// Those that are referred to must outlive this.
    RunLog(const QString& path, const StripeRun& run, const VexaBatchStripeData& list);

private:
    void begin();
    void end(bool isComplete);
    void write(const std::string& text);
    void complainOf(int error);

    const QString m_path;
    const StripeRun& m_run;
    const VexaBatchStripeData& m_list;
    FileDescriptor m_file;
    std::optional<LogLine> m_line; ///< of what is under way
    bool m_hasComplained = false;
};

} // namespace vexa
