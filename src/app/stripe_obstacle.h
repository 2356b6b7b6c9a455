#pragma once

#include "app/command_line.h"

#include <optional>

namespace vexa {

/// Why the requested stripe cannot begin: a time that does not exist at its rate, an unreadable
/// list, or rows that the list does not have. Call before opening a MIDI system, since that alone
/// stops a running generator.
std::optional<CommandLineError> obstacleToStripe(const CommandLine& line);

} // namespace vexa
