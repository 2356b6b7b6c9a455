#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace vexa {

/// Replaces a file atomically: even if the program or the system stops, the file has either its old
/// or its new contents. On failure, returns false, leaves the file unchanged, and leaves no other
/// file behind. Any thread.
///
/// The file keeps its permissions, access control list and extended attributes and, where the
/// system allows, its owner and group. A new file gets `newFileMode`, less the umask. A symbolic
/// link stays and its target is replaced. Read-only files, and devices and the like, are never
/// replaced.
bool replaceFile(const QString& path, const QByteArray& bytes, mode_t newFileMode = 0666);

} // namespace vexa
