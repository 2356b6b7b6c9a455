#pragma once

#include "ltc_tool/command_line.h"

namespace vexa::ltc_tool {

/// Runs the check from the command line, prints the findings, and returns the exit code.
int runCheck(const CommandLine& line);

} // namespace vexa::ltc_tool
