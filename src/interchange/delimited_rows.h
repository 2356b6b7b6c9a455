#pragma once

#include "batch/BatchItem.h"
#include "interchange/ReadRows.h"

#include <QString>

namespace vexa {

/// Reads rows that a spreadsheet wrote: cells between tabs, semicolons or commas, whichever makes
/// more sense of the first lines. A header says which column is which; without one, they stand as
/// in the batch table, and the rate and the sync type may be missing. Without a reel, the hours of
/// the start time are taken. Empty rows are passed over.
ReadRows readDelimitedRows(const QString& text, const ReadingOptions& options);

/// The items as rows under a header. A title that a spreadsheet would take for a formula has an
/// apostrophe in front, which readDelimitedRows() takes away.
QString delimitedText(const BatchItems& items, QChar delimiter);

} // namespace vexa
