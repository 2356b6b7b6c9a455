#pragma once

#include "generator/output_options.h"

#include <optional>
#include <string>
#include <vector>

namespace vexa {

enum class GeneratorMidi { automatic, alsa, jack };

/// The user's command.
struct GeneratorCommandLine {
    enum class Action { run, help, version };

    Action action = Action::run;
    GeneratorMidi midi = GeneratorMidi::automatic;
    std::optional<std::string> logFile; ///< a path
    OutputOptions output;
};

/// Reads the arguments after the program's name. The last of several equal options wins, except
/// connections, which add up. Throws std::invalid_argument with a message for the user.
GeneratorCommandLine readCommandLine(const std::vector<std::string>& arguments);

/// The output of --help.
std::string helpText();

} // namespace vexa
