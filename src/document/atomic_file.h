#pragma once

#include <QByteArray>
#include <QString>

namespace vexa {

/// Puts these bytes into a file in one step: at every moment, and whenever the program or the
/// system stops, the file is either as it was or as it shall be. Returns false when the bytes
/// could not be written; then the file is as it was and nothing is left beside it.
///
/// A file that is replaced keeps its permissions and, as far as the system allows, its owner and
/// group; a new one follows the umask. A symbolic link stays, its target is replaced.
bool replaceFile(const QString& path, const QByteArray& bytes);

} // namespace vexa
