#pragma once

#include <string>
#include <string_view>

namespace vexa {

/// Text of strangers, such as titles, file names and port names, fit for a line of a terminal.
/// Control and format characters and line separators show as escapes: "\x1B", "\u202E". So do
/// bytes that are not UTF-8. All else stays as it is.
std::string printable(std::string_view text);

} // namespace vexa
