#include "desktop/ApplicationService.h"

#include "desktop/application_id.h"
#include "document/file_uris.h"

#include <QDBusConnectionInterface>

namespace vexa {

namespace {

/// Empty if there is none or it is too long for any desktop. It goes into the environment and, in
/// small pieces, to the X server.
QByteArray token(const QVariantMap& platformData, const QString& name) {
    constexpr qsizetype longest = 4096;
    const auto value = platformData.value(name).toByteArray();
    return value.size() <= longest ? value : QByteArray();
}

} // namespace

BusName ApplicationService::takeName() {
    if (!m_bus.isConnected())
        return BusName::noBus;
    // Register the object first: callers that wait for the name call at once.
    m_bus.registerObject(applicationPath(), this, QDBusConnection::ExportAllSlots);
    const auto reply = m_bus.interface()->registerService(applicationId);
    if (!reply.isValid())
        return BusName::noBus;
    return reply == QDBusConnectionInterface::ServiceRegistered ? BusName::ours : BusName::taken;
}

void ApplicationService::Activate(const QVariantMap& platformData) {
    Q_EMIT activated(token(platformData, QStringLiteral("activation-token")),
                     token(platformData, QStringLiteral("desktop-startup-id")));
}

void ApplicationService::Open(const QStringList& uris, const QVariantMap& platformData) {
    Activate(platformData);
    QList<QUrl> files;
    for (const auto& uri : uris)
        if (uri.size() <= longestFileUri)
            files += QUrl(uri);
    const auto path = firstLocalFile(files);
    if (!path.isEmpty())
        Q_EMIT fileOpened(path);
}

} // namespace vexa
