#pragma once

#include <QString>

namespace vexa {

/// The program's ID on the desktop: the name of its desktop entry, icon and metainfo, and its name
/// on the session bus.
inline const QString applicationId = QStringLiteral(VEXA_APPLICATION_ID);

/// The application's object path on the bus, as the Desktop Entry Specification derives it.
inline QString applicationPath() {
    return QLatin1Char('/') + QString(applicationId).replace(QLatin1Char('.'), QLatin1Char('/'));
}

} // namespace vexa
