#pragma once

#include "generator/output_options.h"

#include <optional>
#include <string>
#include <vector>

namespace vexa {

enum class GeneratorMidi { automatic, alsa, jack };

/// What the program was asked to do.
struct GeneratorCommandLine {
    enum class Action { run, help, version };

    Action action = Action::run;
    GeneratorMidi midi = GeneratorMidi::automatic;
    std::optional<std::string> logFile; ///< a path
    OutputOptions output;
};

/// Reads the arguments that follow the program's name; of an option given twice the last counts,
/// but for connections, which add up. Throws std::invalid_argument with a message for the user.
GeneratorCommandLine readCommandLine(const std::vector<std::string>& arguments);

/// What --help prints.
std::string helpText();

} // namespace vexa
