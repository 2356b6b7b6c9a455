#pragma once

#include <QByteArray>
#include <QStringList>

namespace vexa {

/// The texts of a value in an INI file, which commas part: quotes and escapes resolved.
QStringList iniTexts(const QByteArray& value);

/// The texts as one value; each of any characters.
QByteArray iniValue(const QStringList& texts);

} // namespace vexa
