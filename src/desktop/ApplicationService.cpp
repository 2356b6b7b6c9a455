#include "desktop/ApplicationService.h"

#include "desktop/application_id.h"
#include "document/file_uris.h"

#include <QDBusConnectionInterface>

namespace vexa {

BusName ApplicationService::takeName() {
    if (!m_bus.isConnected())
        return BusName::NoBus;
    // The object first: whoever has been waiting for the name calls at once.
    m_bus.registerObject(applicationPath(), this, QDBusConnection::ExportAllSlots);
    const auto reply = m_bus.interface()->registerService(applicationId);
    if (!reply.isValid())
        return BusName::NoBus;
    return reply == QDBusConnectionInterface::ServiceRegistered ? BusName::Ours : BusName::Taken;
}

void ApplicationService::Activate(const QVariantMap& platformData) {
    Q_EMIT activated(platformData.value(QStringLiteral("activation-token")).toByteArray(),
                     platformData.value(QStringLiteral("desktop-startup-id")).toByteArray());
}

void ApplicationService::Open(const QStringList& uris, const QVariantMap& platformData) {
    Activate(platformData);
    const auto path = firstLocalFile(QUrl::fromStringList(uris));
    if (!path.isEmpty())
        Q_EMIT fileOpened(path);
}

} // namespace vexa
