#pragma once

#include "ltc/ltc_word.h"
#include "tape/tape_row.h"

#include <string>
#include <vector>

namespace vexa {

/// What is rendered into one file: rows without an obstacle, one or more.
struct TapeFile {
    std::string name; ///< without a folder
    std::vector<TapeRow> rows;
};

/// A file for each row, or for each reel, in the order of the rows. Each row's number, or each
/// reel's, is part of the name, so that no two are alike. Names are fit for any file system.
std::vector<TapeFile> filePerRow(const std::vector<TapeRow>& rows);
std::vector<TapeFile> filePerReel(const std::vector<TapeRow>& rows);

/// The last eight decimal digits of the reel's number, units in group 1: readers show user bits as
/// hexadecimal digits, group 8 first.
LtcUserBits reelUserBits(std::uint64_t reel);

} // namespace vexa
