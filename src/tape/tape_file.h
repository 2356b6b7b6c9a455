#pragma once

#include "ltc/ltc_word.h"
#include "tape/tape_row.h"

#include <string>
#include <vector>

namespace vexa {

/// The rows of one file: at least one, none with an obstacle.
struct TapeFile {
    std::string name; ///< without a folder
    std::vector<TapeRow> rows;
};

/// One file per row, or per reel, in the order of the rows. File names include the row's or the
/// reel's number, so they are unique. They suit any file system.
std::vector<TapeFile> filePerRow(const std::vector<TapeRow>& rows);
std::vector<TapeFile> filePerReel(const std::vector<TapeRow>& rows);

/// The last eight decimal digits of the reel's number, with the units in group 1. Readers show user
/// bits as hexadecimal digits, group 8 first.
LtcUserBits reelUserBits(std::uint64_t reel);

} // namespace vexa
