#pragma once

#include "ltc_tool/command_line.h"

namespace vexa::ltc_tool {

/// Renders as the command line asks, and returns the exit code. Reports what cannot be rendered,
/// and renders the rest.
int runRender(const CommandLine& line);

} // namespace vexa::ltc_tool
