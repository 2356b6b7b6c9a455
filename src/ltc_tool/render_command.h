#pragma once

#include "ltc_tool/command_line.h"

namespace vexa::ltc_tool {

/// Renders what the command line asks for, and returns the exit code. What cannot be rendered is
/// named, and the rest is done.
int runRender(const CommandLine& line);

} // namespace vexa::ltc_tool
