#pragma once

#include "ltc_tool/command_line.h"

namespace vexa::ltc_tool {

/// Checks what the command line asks for, prints what was found, and returns the exit code.
int runCheck(const CommandLine& line);

} // namespace vexa::ltc_tool
