#pragma once

#include "batch/BatchItem.h"
#include "interchange/ReadRows.h"

#include <QByteArray>
#include <QString>

namespace vexa {

class VexaBatchStripeData;

/// Reads an edit decision list, or else rows as a spreadsheet writes them.
ReadRows readRows(const QString& text, const ReadingOptions& options);

/// Files and clipboards that hold more than this many bytes are refused.
inline constexpr qsizetype mostBytes = 64 << 20;

/// The text of a file of any encoding, or a fault in words.
struct FileText {
    QString text;
    QString fault; ///< null when there is none
};
FileText readTextFile(const QString& path);

/// Items of these rows, each with an id that the list hands out.
BatchItems itemsOfRows(const ReadRows& read, VexaBatchStripeData& list);

} // namespace vexa
