#pragma once

#include "app/command_line.h"

namespace vexa {

/// Stripes in the terminal, through the same controller as the window does, and returns the
/// program's exit code: 0 at the stop time, 130 when interrupted (the generator is then stopped
/// first), 2 when a time does not exist at the frame rate. Needs a QCoreApplication.
int stripeInTerminal(const CommandLine& line);

} // namespace vexa
