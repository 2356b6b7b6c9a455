#pragma once

#include "app/command_line.h"

#include <optional>

namespace vexa {

/// What is in the way of the stripe that was asked for: a time that does not exist at its rate, a
/// list that cannot be read, rows that are not there. To be asked before a MIDI system is opened,
/// since that alone stops a generator that runs.
std::optional<CommandLineError> obstacleToStripe(const CommandLine& line);

} // namespace vexa
