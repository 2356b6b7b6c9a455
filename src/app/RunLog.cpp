#include "app/RunLog.h"

#include "app/complaint.h"
#include "text/printable.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace vexa {

namespace {

constexpr auto heading = "row,reel,title,start,stop,real_start,real_stop,began,ended,how\r\n";

std::string text(std::uint64_t packed) {
    return VexaBatchStripeData::timecodeStringFromBCDNumber(packed).toStdString();
}

std::string text(const QDateTime& moment) {
    const auto offset = moment.toOffsetFromUtc(moment.offsetFromUtc());
    return offset.toString(Qt::ISODateWithMs).toStdString();
}

std::string quoted(const QString& title) {
    auto text = printable(title.toStdString());
    constexpr std::string_view beginningsOfFormulas = "=+-@";
    if (!text.empty() && beginningsOfFormulas.find(text.front()) != std::string_view::npos)
        text.insert(0, "'");
    for (auto at = text.find('"'); at != std::string::npos; at = text.find('"', at + 2))
        text.insert(at, "\"");
    return '"' + text + '"';
}

int opened(const QString& path) {
    // Non-blocking: a pipe without a reader must fail, as a full disk does.
    constexpr int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    return open(QFile::encodeName(path).constData(), flags, 0666);
}

bool isEmpty(int file) {
    struct stat status{};
    return fstat(file, &status) == 0 && status.st_size == 0;
}

/// Appends the whole text. A partial write to a regular file is truncated again.
bool append(int file, std::string_view text) {
    const auto written = write(file, text.data(), text.size());
    if (written == static_cast<ssize_t>(text.size()))
        return true;
    const int error = written < 0 ? errno : ENOSPC;
    if (written > 0)
        std::ignore = ftruncate(file, lseek(file, 0, SEEK_END) - written);
    errno = error;
    return false;
}

} // namespace

std::string logText(const LogLine& line) {
    const auto& item = line.item;
    std::string fields;
    const auto add = [&fields](const std::string& field) { fields += field + ','; };
    const bool isOfList = line.row != 0;
    add(isOfList ? std::to_string(line.row) : "");
    add(isOfList ? std::to_string(item.reel) : "");
    add(isOfList ? quoted(item.title) : "");
    add(text(item.start));
    add(line.hasStop ? text(item.stop) : "");
    add(text(line.realStart));
    add(text(line.realStop));
    add(text(line.began));
    add(text(line.ended));
    return fields + (line.isComplete ? "complete" : "interrupted") + "\r\n";
}

RunLog::RunLog(const QString& path, const StripeRun& run, const VexaBatchStripeData& list)
    : m_path(path), m_run(run), m_list(list), m_file(opened(path)) {
    if (m_file < 0)
        complainOf(errno);
    else if (isEmpty(m_file))
        write(heading);
    connect(&run, &StripeRun::itemLeft, this,
            [this](const BatchItemRef&, bool finished) { end(finished); });
    connect(&run, &StripeRun::phaseChanged, this, [this] {
        if (m_run.progress().phase == Phase::running)
            begin();
        else
            end(m_run.plan().stopTimeSet && m_run.hasReachedStop());
    });
}

void RunLog::begin() {
    const auto& item = m_run.progress().item;
    const auto& plan = m_run.plan();
    const auto& [start, stop, rate, type] = plan.settings;
    m_line = LogLine{.item = item ? *item : BatchItem{{}, {}, start, stop, rate, type},
                     .hasStop = item || plan.stopTimeSet,
                     .realStart = m_run.currentTime(),
                     .began = QDateTime::currentDateTime()};
    const auto rows = m_list.rowsOfItems({item});
    if (!rows.empty())
        m_line->row = *rows.begin() + 1;
}

void RunLog::end(bool isComplete) {
    if (!m_line)
        return;
    auto line = *std::exchange(m_line, {});
    line.realStop = m_run.currentTime();
    line.ended = QDateTime::currentDateTime();
    line.isComplete = isComplete;
    write(logText(line));
}

void RunLog::write(const std::string& text) {
    if (m_file >= 0 && !append(m_file, text))
        complainOf(errno);
}

void RunLog::complainOf(int error) {
    if (!std::exchange(m_hasComplained, true))
        complain(QStringLiteral("\"%1\" cannot be written: %2; the run goes on without that log")
                     .arg(m_path, QString::fromLocal8Bit(std::strerror(error))));
}

} // namespace vexa
