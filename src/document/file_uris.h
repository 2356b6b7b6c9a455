#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <climits>

namespace vexa {

/// The file's URI in ASCII. A relative path starts at the current directory.
QString fileUri(const QString& path);

/// The longest possible file URI: each byte of a path or host name takes up to three characters.
inline constexpr qsizetype longestFileUri = 3 * (PATH_MAX + HOST_NAME_MAX) + 10;

/// The path of the first URI that names a local file in UTF-8; null if none does. The program shows
/// one list at a time, so it ignores the others.
QString firstLocalFile(const QList<QUrl>& uris);

} // namespace vexa
