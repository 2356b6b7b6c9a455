#pragma once

#include <string>
#include <vector>

namespace vexa::ltc_tool {

/// Rows of cells as lines of text, in columns as wide as their widest cell, two blanks apart. The
/// first row is the heading. Cells are made safe for a terminal.
std::string tableText(const std::vector<std::vector<std::string>>& rows);

/// The same as comma-separated values (RFC 4180, with plain line feeds).
std::string csvText(const std::vector<std::vector<std::string>>& rows);

} // namespace vexa::ltc_tool
