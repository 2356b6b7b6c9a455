#pragma once

#include "tape/render.h"
#include "timecode/timecode.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <set>

namespace vexa::ltc_tool {

/// The user's command.
struct CommandLine {
    enum class Action { render, check, help, version };

    Action action = Action::help;
    QStringList files;          ///< arguments that are no option's value
    std::set<std::size_t> rows; ///< of the list, from 0; empty for all

    // render
    QString folder;
    bool filePerReel = false;
    std::optional<Timecode> start; ///< of a single stripe; files then has the file to write
    std::optional<Timecode> stop;
    std::uint64_t rate = rate::fps30;
    std::optional<double> pause; ///< between rows, in seconds; none: the preferences' pause
    RenderOptions options;

    // check
    bool jack = false;
    QString port; ///< JACK port to connect to; null if none
    bool csv = false;
    std::optional<int> channel;   ///< from 1
    double speedTolerance = 0.05; ///< percent
};

/// Reads the arguments after the program's name. Throws a Refusal.
CommandLine readCommandLine(const QStringList& arguments);

/// The text for --help.
QString helpText();

} // namespace vexa::ltc_tool
