#pragma once

#include <QString>
#include <QStringList>

namespace vexa {

/// The list of recent files that desktop programs share: recently-used.xbel of the Desktop Bookmark
/// Specification, in $XDG_DATA_HOME.
QString recentlyUsedFile();

/// Adds batch list files, by absolute path, to such a list, as used now by this program. Keeps all
/// other entries. If the list cannot be read or written, returns false and leaves it unchanged.
/// Any thread, but one at a time.
bool addToRecentlyUsed(const QStringList& paths, const QString& listFile);

} // namespace vexa
