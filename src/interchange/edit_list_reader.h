#pragma once

#include "interchange/ReadRows.h"

#include <QString>
#include <QStringView>

namespace vexa {

/// Whether the text begins as edit decision lists do, with a title, a counting mode or an edit.
bool isEditList(QStringView text);

/// Reads an edit decision list of the CMX 3600 kind: each edit is a row, with the name of its clip,
/// or else of its reel, as the title. Drop-frame is told by "FCM: DROP FRAME" or by semicolons in
/// the times; any other rate such a list does not tell.
///
/// Reels have names there. The number of a reel is what its name ends with; where there is none or
/// another name has it, the least one that is free, in the order of the text.
ReadRows readEditList(const QString& text, const ReadingOptions& options);

} // namespace vexa
