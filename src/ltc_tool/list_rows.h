#pragma once

#include "tape/tape_row.h"

#include <QString>

namespace vexa::ltc_tool {

/// The rows of a list file, or those of these numbers, which count from 0. Throws a Refusal where
/// the list cannot be read or lacks a row.
std::vector<TapeRow> listRows(const QString& path, const std::set<std::size_t>& numbers);

} // namespace vexa::ltc_tool
