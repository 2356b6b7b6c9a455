#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vexa {

/// The contents of a regular file of at most `limit` bytes. Nothing for a longer file, or for one
/// that could block or never end, such as a pipe or a device.
std::optional<QByteArray> readRegularFile(const QString& path, qsizetype limit);

} // namespace vexa
