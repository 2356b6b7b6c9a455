#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariantMap>

namespace vexa {

/// What the desktop gave this process, by its environment, to put a window in front with. To be
/// called before there is a QGuiApplication, which takes it away.
QVariantMap startupTokens();

/// Lets the program that has the application id show itself and open the file, if any. False when
/// it does not answer within the time, in milliseconds.
bool handOver(const QDBusConnection& bus, const QString& file, const QVariantMap& startupTokens,
              int patience);

} // namespace vexa
