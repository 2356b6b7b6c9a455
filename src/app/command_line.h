#pragma once

#include "batch/VexaBatchStripeData.h"
#include "timecode/timecode.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <variant>

namespace vexa {

struct MidiChoice;

/// The parsed command line.
struct CommandLine {
    enum class Mode { window, stripe, destinations, importRows, checkList, help, version };

    Mode mode = Mode::window;
    const MidiChoice* midi = nullptr;   ///< one of midiChoices(); null: automatic
    std::optional<QString> destination; ///< a position, an ID, or part of one name
    std::optional<Timecode> start;
    std::optional<Timecode> stop;
    std::optional<std::uint64_t> rate;
    std::optional<std::uint64_t> type;
    QString file;    ///< the list to open, stripe, check or add to; null: none
    RowIndexes rows; ///< of the list, counted from 0; empty: all
    bool progressAsJson = false;
    QString log;                   ///< the file to log each finished row to; null: none
    QString importFile;            ///< the file of rows to add to the list
    bool recordTimes = false;      ///< for an edit decision list: use the programme's times
    std::uint64_t tapeMinutes = 0; ///< 0: no limit
};

/// A one-line message about what is wrong with the arguments.
struct CommandLineError {
    QString message;
};

/// arguments: those after the program's name.
std::variant<CommandLine, CommandLineError> parseCommandLine(const QStringList& arguments);

/// The text of --help.
QString commandLineHelp();

} // namespace vexa
