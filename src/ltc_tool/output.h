#pragma once

#include <string>

namespace vexa::ltc_tool {

/// The program's exit codes.
namespace status {
inline constexpr int good = 0;
inline constexpr int faults = 1;
inline constexpr int misuse = 2;
inline constexpr int interrupted = 130;
} // namespace status

/// Prints a line on standard error, after the program's name. The message may contain text from
/// outside.
void complain(const std::string& message);

/// Shows a line that the next one overwrites, if standard error is a terminal. An empty line clears
/// it.
void showProgress(const std::string& line);

} // namespace vexa::ltc_tool
