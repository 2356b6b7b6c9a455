#pragma once

#include "app/command_line.h"

namespace vexa {

/// Stripes in the terminal, through the same controller as the window does: one stripe or a batch
/// list, with changes of reel asked for there. Returns the program's exit code: 0 at the end, 130
/// when interrupted or left without an answer (the generator is then stopped first), 2 when there
/// is nothing that can be striped. Needs a QCoreApplication.
int stripeInTerminal(const CommandLine& line);

} // namespace vexa
