#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariantMap>

namespace vexa {

/// The tokens from the desktop, in this process's environment, for bringing a window to the front.
/// Call before creating a QGuiApplication, which removes them.
QVariantMap startupTokens();

/// Asks the program that owns the application ID to show itself and open the file, if any. Returns
/// false if it does not answer within the time, in milliseconds.
bool handOver(const QDBusConnection& bus, const QString& file, const QVariantMap& startupTokens,
              int patience);

} // namespace vexa
