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

/// A line on standard error, with the program's name in front. The message may hold text of
/// strangers.
void complain(const std::string& message);

/// A line that is overwritten, where standard error is a terminal; an empty one wipes it.
void showProgress(const std::string& line);

} // namespace vexa::ltc_tool
