#pragma once

#include <string>
#include <string_view>

namespace vexa {

/// Makes text from outside, such as titles, file names and port names, safe to print on a terminal.
/// Escapes control characters, format characters and line separators ("\x1B", "\u202E"), and bytes
/// that are not UTF-8. Keeps everything else.
std::string printable(std::string_view text);

} // namespace vexa
