#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace vexa {

/// Puts these bytes into a file in one step: at every moment, and whenever the program or the
/// system stops, the file is either as it was or as it shall be. Returns false when the bytes
/// could not be written; then the file is as it was and nothing is left beside it.
///
/// A file that is replaced keeps its permissions, access control list and extended attributes and,
/// as far as the system allows, its owner and group; a new one has those of `newFileMode` that the
/// umask leaves. A symbolic link stays, its target is replaced. What is no regular file, a device
/// for one, or may only be read is never replaced. May be called on any thread.
bool replaceFile(const QString& path, const QByteArray& bytes, mode_t newFileMode = 0666);

} // namespace vexa
