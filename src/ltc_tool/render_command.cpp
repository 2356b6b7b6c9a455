#include "ltc_tool/render_command.h"

#include "arguments/option_values.h"
#include "defaults/user_defaults.h"
#include "ltc_tool/interruption.h"
#include "ltc_tool/list_rows.h"
#include "ltc_tool/output.h"
#include "tape/tape_error.h"
#include "text/printable.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vexa::ltc_tool {

namespace {

/// Renders files one after another, and tracks the overall result.
class Renderer {
public:
    Renderer(std::filesystem::path folder, const RenderOptions& options, std::size_t files)
        : m_folder(std::move(folder)), m_options(options), m_files(files) {}

    /// Returns false if the file could not be written.
    bool file(const TapeFile& file) {
        ++m_number;
        try {
            render(file, m_folder, m_options, [&](double part) { show(file, part); });
        } catch (const TapeError& error) {
            complain(error.what());
            return false;
        }
        showProgress({});
        std::printf("%s: %s to %s, %s\n", printable(file.name).c_str(),
                    timecodeText(file.rows.front().start).c_str(),
                    timecodeText(lastFrame(file.rows.back())).c_str(),
                    std::string(file.rows.front().rate->name).c_str());
        std::fflush(stdout);
        return true;
    }

private:
    void show(const TapeFile& file, double part) const {
        if (wasInterrupted())
            throw Interrupted{};
        showProgress(std::to_string(m_number) + " of " + std::to_string(m_files) + ": " +
                     file.name + "  " + std::to_string(std::lround(part * 100)) + " %");
    }

    std::filesystem::path m_folder;
    RenderOptions m_options;
    std::size_t m_files;
    std::size_t m_number = 0;
};

std::filesystem::path pathOf(const QString& name) { return QFile::encodeName(name).toStdString(); }

/// The window's pause between rows. The preferences may contain any number.
double preferredPause() {
    constexpr double longest = 3600;
    return std::clamp(defaults::read().delayInSeconds.value_or(Preferences::standardDelay), 0.0,
                      longest);
}

/// The rows that have timecode; reports the others.
std::vector<TapeRow> withSignal(std::vector<TapeRow> rows) {
    std::erase_if(rows, [](const TapeRow& row) {
        const auto fault = obstacle(row);
        if (!fault.empty())
            complain("row " + std::to_string(row.number) +
                     (row.title.empty() ? "" : " \"" + row.title + '"') +
                     " is not rendered: " + fault);
        return !fault.empty();
    });
    return rows;
}

int renderList(const CommandLine& line, const RenderOptions& options) {
    if (!QFileInfo(line.folder).isDir())
        throw Refusal{QStringLiteral("\"%1\" is not a folder").arg(line.folder)};
    const auto all = listRows(line.files.constFirst(), line.rows);
    const auto rows = withSignal(all);
    bool isGood = rows.size() == all.size();
    const auto files = line.filePerReel ? filePerReel(rows) : filePerRow(rows);
    Renderer renderer(pathOf(line.folder), options, files.size());
    for (const auto& file : files)
        isGood = renderer.file(file) && isGood;
    return isGood ? status::good : status::faults;
}

int renderSingle(const CommandLine& line, const RenderOptions& options) {
    TapeRow row;
    row.start = *line.start;
    row.stop = *line.stop;
    row.rate = &frameRateForCode(line.rate);
    if (const auto fault = obstacle(row); !fault.empty()) {
        complain(fault);
        return status::misuse;
    }
    const auto path = pathOf(line.files.constFirst());
    Renderer renderer(path.parent_path(), options, 1);
    return renderer.file({path.filename().string(), {row}}) ? status::good : status::faults;
}

} // namespace

int runRender(const CommandLine& line) {
    auto options = line.options;
    options.pause = line.pause.value_or(preferredPause());
    return line.start ? renderSingle(line, options) : renderList(line, options);
}

} // namespace vexa::ltc_tool
