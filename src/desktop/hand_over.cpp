#include "desktop/hand_over.h"

#include "desktop/application_id.h"
#include "document/file_uris.h"

#include <QDBusMessage>

namespace vexa {

QVariantMap startupTokens() {
    QVariantMap tokens;
    if (const auto token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN"); !token.isEmpty())
        tokens[QStringLiteral("activation-token")] = token;
    if (const auto id = qEnvironmentVariable("DESKTOP_STARTUP_ID"); !id.isEmpty())
        tokens[QStringLiteral("desktop-startup-id")] = id;
    return tokens;
}

bool handOver(const QDBusConnection& bus, const QString& file, const QVariantMap& startupTokens,
              int patience) {
    const auto method = file.isNull() ? QStringLiteral("Activate") : QStringLiteral("Open");
    auto call = QDBusMessage::createMethodCall(
        applicationId, applicationPath(), QStringLiteral("org.freedesktop.Application"), method);
    call.setAutoStartService(false);
    if (!file.isNull())
        call << QStringList{fileUri(file)};
    call << startupTokens;
    return bus.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

} // namespace vexa
