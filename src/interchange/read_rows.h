#pragma once

#include "batch/BatchItem.h"
#include "interchange/ReadRows.h"

#include <QByteArray>
#include <QString>

namespace vexa {

class VexaBatchStripeData;

/// Reads an edit decision list, or otherwise rows as a spreadsheet writes them.
ReadRows readRows(const QString& text, const ReadingOptions& options);

/// Larger files and clipboards are refused.
inline constexpr qsizetype mostBytes = 64 << 20;

/// The text of a file of any encoding, or a fault in words.
struct FileText {
    QString text;
    QString fault; ///< null if there is none
};
FileText readTextFile(const QString& path);

/// Items of these rows, each with an ID from the list.
BatchItems itemsOfRows(const ReadRows& read, VexaBatchStripeData& list);

} // namespace vexa
