#pragma once

#include "batch/BatchItem.h"

#include <QString>

namespace vexa {

/// A list file is a property list: a dictionary whose one key, "vexabatchlist", has the array of
/// the items in row order. It is written as XML and read as XML or binary.

/// The items of the file, in the order of the file. There are none when it cannot be read, is no
/// property list, has no such array, or asks for more memory than a MemoryBudget has.
BatchItems readListFile(const QString& path);

/// Replaces the file in one step. Returns false when it could not; then it is as it was.
bool writeListFile(const QString& path, const BatchItems& items);

} // namespace vexa
