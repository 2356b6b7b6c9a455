#pragma once

#include "files/FileDescriptor.h"
#include "stripe/StripeRun.h"

#include <QDateTime>
#include <QObject>
#include <QString>

#include <optional>
#include <string>

namespace vexa {

/// The values of one CSV line.
struct LogLine {
    std::size_t row = 0;  ///< counted from 1; 0 for a stripe without a list
    BatchItem item{};     ///< as planned
    bool hasStop = false; ///< false: no stop time was planned
    std::uint64_t realStart = 0;
    std::uint64_t realStop = 0;
    QDateTime began{};
    QDateTime ended{};
    bool isComplete = false;
};
/// Includes the line end. A title becomes one line that no spreadsheet takes for a formula.
std::string logText(const LogLine& line);

/// Appends a line to a file as each stripe or item of a run ends. A write failure is reported once
/// and does not stop the run. Main thread only.
class RunLog : public QObject {
public:
    /// The run and the list must outlive this.
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
    std::optional<LogLine> m_line; ///< of the current stripe or item
    bool m_hasComplained = false;
};

} // namespace vexa
