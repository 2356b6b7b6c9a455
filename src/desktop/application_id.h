#pragma once

#include <QString>

namespace vexa {

/// What the desktop knows the program by: the name of its desktop entry, its icon and its metainfo,
/// and its name on the session bus.
inline const QString applicationId = QStringLiteral(VEXA_APPLICATION_ID);

/// Where on the bus the application's object is, by the rule of the Desktop Entry Specification.
inline QString applicationPath() {
    return QLatin1Char('/') + QString(applicationId).replace(QLatin1Char('.'), QLatin1Char('/'));
}

} // namespace vexa
