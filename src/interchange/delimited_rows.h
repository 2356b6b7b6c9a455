#pragma once

#include "batch/BatchItem.h"
#include "interchange/ReadRows.h"

#include <QString>

namespace vexa {

/// Reads rows written by a spreadsheet, with tabs, semicolons or commas between the cells,
/// whichever fit the first lines best. A header assigns the columns. Without one, they are as in
/// the batch table, and rate and sync type are optional. A row without a reel takes the hours of
/// its start time. Skips empty rows.
ReadRows readDelimitedRows(const QString& text, const ReadingOptions& options);

/// The items as rows below a header. A title that a spreadsheet would take for a formula gets a
/// leading apostrophe, which readDelimitedRows() removes.
QString delimitedText(const BatchItems& items, QChar delimiter);

} // namespace vexa
