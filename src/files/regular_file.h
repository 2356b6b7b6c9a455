#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vexa {

/// The bytes of a regular file that holds no more than `limit` of them. Nothing for a longer file,
/// or for one whose reading could block or never end, such as a pipe or a device.
std::optional<QByteArray> readRegularFile(const QString& path, qsizetype limit);

} // namespace vexa
