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

/// What the operator asked for on the command line.
struct CommandLine {
    enum class Mode { window, stripe, destinations, importRows, checkList, help, version };

    Mode mode = Mode::window;
    const MidiChoice* midi = nullptr;   ///< one of midiChoices(); null: by itself
    std::optional<QString> destination; ///< a position in the list, an ID, or part of one name
    std::optional<Timecode> start;
    std::optional<Timecode> stop;
    std::optional<std::uint64_t> rate;
    std::optional<std::uint64_t> type;
    QString file;    ///< a list to open, to stripe, to check or to add to; null when none
    RowIndexes rows; ///< of the list, counted from 0; empty for all
    bool progressAsJson = false;
    QString log;              ///< a file that gets a line for each row that ends; null when none
    QString importFile;       ///< a file of rows to add to the list
    bool recordTimes = false; ///< of an edit decision list: those of the programme
    std::uint64_t tapeMinutes = 0; ///< 0: a tape of any length
};

/// One line that says what is wrong with the arguments.
struct CommandLineError {
    QString message;
};

/// arguments: without the program's name.
std::variant<CommandLine, CommandLineError> parseCommandLine(const QStringList& arguments);

/// The text for --help.
QString commandLineHelp();

} // namespace vexa
