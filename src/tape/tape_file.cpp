#include "tape/tape_file.h"

#include "text/printable.h"
#include "text/utf8_prefix.h"

#include <algorithm>

namespace vexa {

namespace {

/// Leaves room for the rest of the name in the 255 bytes of a file name.
constexpr std::size_t longestTitle = 160;

std::string padded(std::size_t number, std::size_t digits) {
    const auto text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

/// A title as part of a file name, safe even for machines that allow fewer characters.
std::string fileNamePart(const std::string& title) {
    auto part = printable(title);
    for (char& c : part)
        if (std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos)
            c = '_';
    return std::string(utf8Prefix(part, longestTitle));
}

std::string reelName(std::uint64_t reel) { return "Reel " + std::to_string(reel); }

} // namespace

std::vector<TapeFile> filePerRow(const std::vector<TapeRow>& rows) {
    std::size_t digits = 2;
    for (const auto& row : rows)
        digits = std::max(digits, std::to_string(row.number).size());
    std::vector<TapeFile> files;
    files.reserve(rows.size());
    for (const auto& row : rows) {
        const auto title = row.title.empty() ? "" : " - " + fileNamePart(row.title);
        files.push_back(
            {padded(row.number, digits) + ' ' + reelName(row.reel) + title + ".wav", {row}});
    }
    return files;
}

std::vector<TapeFile> filePerReel(const std::vector<TapeRow>& rows) {
    std::vector<TapeFile> files;
    for (const auto& row : rows) {
        const auto name = reelName(row.reel) + ".wav";
        auto file = std::ranges::find(files, name, &TapeFile::name);
        if (file == files.end())
            file = files.insert(file, {name, {}});
        file->rows.push_back(row);
    }
    return files;
}

LtcUserBits reelUserBits(std::uint64_t reel) {
    LtcUserBits bits = 0;
    for (int group = 0; group < 8; ++group, reel /= 10)
        bits |= static_cast<LtcUserBits>(reel % 10) << 4 * group;
    return bits;
}

} // namespace vexa
