#pragma once

#include "tape/tape_row.h"

#include <QString>

namespace vexa::ltc_tool {

/// The rows of a list file, or only those with these numbers, from 0. Throws a Refusal if the list
/// cannot be read or has no such row.
std::vector<TapeRow> listRows(const QString& path, const std::set<std::size_t>& numbers);

} // namespace vexa::ltc_tool
