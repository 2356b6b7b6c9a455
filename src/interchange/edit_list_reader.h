#pragma once

#include "interchange/ReadRows.h"

#include <QString>
#include <QStringView>

namespace vexa {

/// Whether the text begins like an edit decision list: with a title, a counting mode or an edit.
bool isEditList(QStringView text);

/// Reads an edit decision list of the CMX 3600 kind. Each edit becomes a row, titled with the name
/// of its clip or else of its reel. "FCM: DROP FRAME", or semicolons in the times, mean drop-frame;
/// such a list states no other rate.
///
/// Reels have names. A reel's number is the number at the end of its name. If there is none, or
/// another name has it, the reel gets the lowest free number, in the order of the text.
ReadRows readEditList(const QString& text, const ReadingOptions& options);

} // namespace vexa
