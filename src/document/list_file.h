#pragma once

#include "batch/BatchItem.h"

#include <QString>

#include <optional>

namespace vexa {

/// A list file is a property list: a dictionary whose only key, "vexabatchlist", holds the array of
/// items in row order. It is written as XML, and read as XML or binary.

/// The items of the file, in its order. Nothing if the file cannot be read, is no property list,
/// has no such array, or exceeds the MemoryBudget.
std::optional<BatchItems> listInFile(const QString& path);

/// The same, but an empty list if the file has none.
BatchItems readListFile(const QString& path);

/// Replaces the file atomically. On failure, returns false and leaves it unchanged.
bool writeListFile(const QString& path, const BatchItems& items);

} // namespace vexa
