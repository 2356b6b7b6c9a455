#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace vexa {

enum class BusName { ours, taken, noBus };

/// The program on the session bus: org.freedesktop.Application of the Desktop Entry Specification.
class ApplicationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationService(QDBusConnection bus) : m_bus(std::move(bus)) {}

    /// Tries to own the application ID on the bus while the program runs. May be called on any
    /// thread; bus calls are answered on this object's thread.
    BusName takeName();

    // The names are those on the bus. platformData: see startupTokens().
    Q_SLOT void Activate(const QVariantMap& platformData);
    Q_SLOT void Open(const QStringList& uris, const QVariantMap& platformData);
    /// The program's desktop entry has no actions.
    Q_SLOT void ActivateAction(const QString&, const QVariantList&,
                               const QVariantMap& platformData) {
        Activate(platformData);
    }

Q_SIGNALS:
    /// Bring the window to the front. token: permission to do so, on desktops that require it.
    /// startupId: identifies the requesting launch on X. Either may be empty.
    void activated(const QByteArray& token, const QByteArray& startupId);
    void fileOpened(const QString& path);

private:
    QDBusConnection m_bus;
};

} // namespace vexa
