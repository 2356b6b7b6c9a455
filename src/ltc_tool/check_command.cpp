#include "ltc_tool/check_command.h"

#include "arguments/option_values.h"
#include "document/list_file.h"
#include "ltc_tool/interruption.h"
#include "ltc_tool/jack_recording.h"
#include "ltc_tool/list_rows.h"
#include "ltc_tool/output.h"
#include "ltc_tool/report.h"
#include "tape/tape_error.h"
#include "tape/tape_reader.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <cstdio>

namespace vexa::ltc_tool {

namespace {

TapeContents readRecording(const QString& file, const CommandLine& line) {
    const auto name = QFileInfo(file).fileName().toStdString();
    Recording recording(QFile::encodeName(file).toStdString());
    const auto channel =
        line.channel ? std::optional(static_cast<std::size_t>(*line.channel - 1)) : std::nullopt;
    auto contents = contentsOf(recording, channel, [&](double part) {
        if (wasInterrupted())
            throw Interrupted{};
        showProgress(name + "  " + std::to_string(std::lround(part * 100)) + " %");
    });
    showProgress({});
    contents.name = name;
    return contents;
}

/// Whether the first file is a list, judged by its content.
bool beginsWithList(const CommandLine& line) {
    return !line.files.isEmpty() && !readListFile(line.files.constFirst()).empty();
}

void addRows(Findings& findings, const CommandLine& line) {
    for (const auto& row : listRows(line.files.constFirst(), line.rows)) {
        if (const auto fault = obstacle(row); fault.empty())
            findings.rows.push_back(row);
        else
            findings.skipped.push_back("Row " + std::to_string(row.number) +
                                       " cannot be on a tape: " + fault);
    }
}

} // namespace

int runCheck(const CommandLine& line) {
    Findings findings;
    const bool hasList = beginsWithList(line);
    if (hasList)
        addRows(findings, line);
    else if (!line.rows.empty())
        throw Refusal{QStringLiteral("--rows goes with a batch list")};
    const auto recordings = line.files.mid(hasList ? 1 : 0);
    if (recordings.isEmpty() != line.jack)
        throw Refusal{line.jack ? QStringLiteral("--jack goes with no recording")
                                : QStringLiteral("check needs a recording, or --jack")};
    try {
        for (const auto& file : recordings)
            findings.tapes.push_back(readRecording(file, line));
        if (line.jack)
            findings.tapes.push_back(listenToJack(line.port.toStdString()));
    } catch (const TapeError& error) {
        complain(error.what());
        return status::misuse;
    }
    const double tolerance = line.speedTolerance / 100;
    if (hasList)
        findings.verdict = compare(findings.rows, findings.tapes, tolerance);
    else
        findings.faults = faultsOf(findings.tapes, tolerance);
    const auto text = line.csv ? reportCsv(findings) : reportText(findings);
    std::fputs(text.c_str(), stdout);
    return isGood(findings) ? status::good : status::faults;
}

} // namespace vexa::ltc_tool
