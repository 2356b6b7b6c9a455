#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace vexa {

enum class BusName { ours, taken, noBus };

/// The program as other programs see it on the session bus: org.freedesktop.Application, as the
/// Desktop Entry Specification has it.
class ApplicationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationService(QDBusConnection bus) : m_bus(std::move(bus)) {}

    /// Tries to become the program that answers to the application id, for as long as it runs. May
    /// be called on any thread; what is called on the bus is answered on that of this object.
    BusName takeName();

    // Their names are those on the bus. platformData: as from startupTokens().
    Q_SLOT void Activate(const QVariantMap& platformData);
    Q_SLOT void Open(const QStringList& uris, const QVariantMap& platformData);
    /// The program's desktop entry names no actions.
    Q_SLOT void ActivateAction(const QString&, const QVariantList&,
                               const QVariantMap& platformData) {
        Activate(platformData);
    }

Q_SIGNALS:
    /// The window is to come to the front. token: leave to do so, on desktops that ask for one.
    /// startupId: of the launch that asks for it, on X. Either may be empty.
    void activated(const QByteArray& token, const QByteArray& startupId);
    void fileOpened(const QString& path);

private:
    QDBusConnection m_bus;
};

} // namespace vexa
