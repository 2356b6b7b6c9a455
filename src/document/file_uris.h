#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <climits>

namespace vexa {

/// The file's URI as a text of ASCII letters. A relative path starts at the current directory.
QString fileUri(const QString& path);

/// No longer text can be the URI of a file: each byte of a path takes up to three letters, and so
/// may each of a machine's name.
inline constexpr qsizetype longestFileUri = 3 * (PATH_MAX + HOST_NAME_MAX) + 10;

/// The path of the first of them that is a file of this machine, under a name in UTF-8; null when
/// none is. The program shows one list at a time, so that there is no use for the others.
QString firstLocalFile(const QList<QUrl>& uris);

} // namespace vexa
