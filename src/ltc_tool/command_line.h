#pragma once

#include "tape/render.h"
#include "timecode/timecode.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <set>

namespace vexa::ltc_tool {

/// What the user asked for.
struct CommandLine {
    enum class Action { Render, Check, Help, Version };

    Action action = Action::Help;
    QStringList files;          ///< those that are no option's value
    std::set<std::size_t> rows; ///< of the list, counted from 0; empty for all

    // render
    QString folder;
    bool filePerReel = false;
    std::optional<Timecode> start; ///< of a single stripe; files has the one to write then
    std::optional<Timecode> stop;
    std::uint64_t rate = rate::fps30;
    std::optional<double> pause; ///< between rows, in seconds; without it, that of the preferences
    RenderOptions options;

    // check
    bool jack = false;
    QString port; ///< of JACK, to connect to; null when none
    bool csv = false;
    std::optional<int> channel;   ///< counted from 1
    double speedTolerance = 0.05; ///< percent
};

/// The arguments that follow the program's name. Throws a Refusal.
CommandLine readCommandLine(const QStringList& arguments);

/// The text for --help.
QString helpText();

} // namespace vexa::ltc_tool
