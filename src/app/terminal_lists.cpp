#include "app/terminal_lists.h"

#include "app/command_line.h"
#include "app/complaint.h"
#include "check/list_check.h"
#include "defaults/user_defaults.h"
#include "document/list_file.h"
#include "interchange/read_rows.h"
#include "text/duration_text.h"
#include "text/printable.h"
#include "timecode/sync_type.h"

#include <QFileInfo>

#include <cstdio>

namespace vexa {

namespace {

constexpr int wellDone = 0;
constexpr int somethingToLookAt = 1;
constexpr int notPossible = 2;

int refuse(const QString& path, const QString& fault) {
    complain(QStringLiteral("\"%1\": %2").arg(path, fault));
    return notPossible;
}

std::string text(const QString& ofStrangers) { return printable(ofStrangers.toStdString()); }

ReadRows rowsFor(const CommandLine& line, const QString& fileText) {
    const auto standardType = defaults::read().defaultSyncType.value_or(sync::mtc);
    return readRows(fileText, {line.rate.value_or(rate::fps30), line.type.value_or(standardType),
                               line.recordTimes ? EditTimes::record : EditTimes::source});
}

int addToList(const ReadRows& read, const CommandLine& line) {
    auto items = QFileInfo::exists(line.file) ? listInFile(line.file) : BatchItems();
    if (!items)
        return refuse(line.file, QStringLiteral("it is not a batch list"));
    VexaBatchStripeData list(nullptr);
    list.replaceBatchList(std::move(*items));
    list.addItems(itemsOfRows(read, list));
    if (!read.rows.empty() && !writeListFile(line.file, list.batchList()))
        return refuse(line.file, QStringLiteral("it could not be written"));
    for (const auto& [number, lineText, reason] : read.refused)
        complain(QStringLiteral("line %1: %2: %3").arg(number).arg(reason, lineText));
    std::printf("Rows added: %zu; lines skipped: %zu\n", read.rows.size(), read.refused.size());
    return read.refused.empty() && !read.rows.empty() ? wellDone : somethingToLookAt;
}

} // namespace

int importInTerminal(const CommandLine& line) {
    const auto [fileText, fault] = readTextFile(line.importFile);
    if (!fault.isNull())
        return refuse(line.importFile, fault);
    const auto read = rowsFor(line, fileText);
    if (!read.fault.isNull())
        return refuse(line.importFile, read.fault);
    if (read.assumedRate && !line.rate)
        return refuse(line.importFile,
                      QStringLiteral("it does not state the frame rate; add --rate"));
    return addToList(read, line);
}

int checkInTerminal(const CommandLine& line) {
    const auto items = listInFile(line.file);
    if (!items)
        return refuse(line.file, QFileInfo::exists(line.file)
                                     ? QStringLiteral("it is not a batch list")
                                     : QStringLiteral("there is no such file"));
    const auto findings = checkList(*items, line.tapeMinutes);
    for (const auto& finding : findings)
        std::printf("row %zu, reel %llu, %s: %s\n", finding.row + 1,
                    static_cast<unsigned long long>(finding.item->reel),
                    text(finding.item->title).c_str(), text(findingText(finding)).c_str());
    for (const auto& [reel, rows, time] : reelTotals(*items))
        std::printf("reel %llu: items %zu, %s in all\n", static_cast<unsigned long long>(reel),
                    rows, durationText(time).c_str());
    return findings.empty() ? wellDone : somethingToLookAt;
}

} // namespace vexa
