#pragma once

#include <QString>
#include <QStringList>

namespace vexa {

/// The list of files used last that the programs of a desktop share: the XML file
/// recently-used.xbel of the Desktop Bookmark Specification, below $XDG_DATA_HOME.
QString recentlyUsedFile();

/// Enters batch list files, given by absolute paths, into such a list as used now by this program.
/// What others hold there stays. Returns false, and leaves the file as it is, when it cannot be
/// read as such a list or not be written. May be called on any thread, on one at a time.
bool addToRecentlyUsed(const QStringList& paths, const QString& listFile);

} // namespace vexa
