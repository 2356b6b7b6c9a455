#pragma once

#include <QByteArray>
#include <QStringList>

namespace vexa {

/// The comma-separated texts of a value in an INI file, with quotes and escapes resolved.
QStringList iniTexts(const QByteArray& value);

/// The inverse. The texts may contain any characters.
QByteArray iniValue(const QStringList& texts);

} // namespace vexa
