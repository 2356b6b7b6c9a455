#include "ltc_tool/table.h"

#include "text/printable.h"

#include <algorithm>

namespace vexa::ltc_tool {

namespace {

/// The number of characters, which is the width in most scripts.
std::size_t width(const std::string& utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string quoted(const std::string& cell) {
    if (cell.find_first_of(",\"\r\n") == std::string::npos)
        return cell;
    std::string text = "\"";
    for (const char c : cell)
        text += c == '"' ? std::string("\"\"") : std::string(1, c);
    return text + '"';
}

} // namespace

std::string tableText(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    auto cells = rows;
    for (auto& row : cells) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            row[i] = printable(row[i]);
            widths[i] = std::max(widths[i], width(row[i]));
        }
    }
    std::string text;
    for (const auto& row : cells) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += row[i] + std::string(widths[i] - width(row[i]) + 2, ' ');
        text += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
    }
    return text;
}

std::string csvText(const std::vector<std::vector<std::string>>& rows) {
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0)
                text += ',';
            text += quoted(row[i]);
        }
        text += '\n';
    }
    return text;
}

} // namespace vexa::ltc_tool
