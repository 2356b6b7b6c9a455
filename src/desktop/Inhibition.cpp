#include "desktop/Inhibition.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QVariantMap>

namespace vexa {

namespace {

const auto programName = QStringLiteral("Vexa Remote");
const auto reason = QStringLiteral("Timecode is being striped");
const auto portalRequest = QStringLiteral("org.freedesktop.portal.Request");

std::function<void()> callWithoutReply(const QDBusConnection& bus, const QDBusMessage& message) {
    return [bus, message] { bus.call(message, QDBus::NoBlock); };
}

/// The promise is an object, and lasts until the object is closed.
Inhibition portalInhibition(const QDBusConnection& session) {
    constexpr uint suspend = 4;
    constexpr uint idle = 8;
    const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");
    const auto request =
        QDBusMessage::createMethodCall(portal, QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.Inhibit"),
                                       QStringLiteral("Inhibit"))
        << QString() << (suspend | idle) << QVariantMap{{QStringLiteral("reason"), reason}};
    const auto promiseIn = [session, portal](const QDBusMessage& reply) {
        const auto object = reply.arguments().value(0).value<QDBusObjectPath>().path();
        if (object.isEmpty())
            return Inhibition::Promise();
        const auto close =
            QDBusMessage::createMethodCall(portal, object, portalRequest, QStringLiteral("Close"));
        return Inhibition::Promise{callWithoutReply(session, close), object};
    };
    return {session, request, promiseIn};
}

/// The promise is a number.
Inhibition screenSaverInhibition(const QDBusConnection& session) {
    const auto call = [](const QString& method) {
        return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                              QStringLiteral("/org/freedesktop/ScreenSaver"),
                                              QStringLiteral("org.freedesktop.ScreenSaver"),
                                              method);
    };
    const auto promiseIn = [session, call](const QDBusMessage& reply) {
        const auto cookie = reply.arguments().value(0);
        if (cookie.typeId() != QMetaType::UInt)
            return Inhibition::Promise();
        const auto uninhibit = call(QStringLiteral("UnInhibit")) << cookie;
        return Inhibition::Promise{callWithoutReply(session, uninhibit), {}};
    };
    return {session, call(QStringLiteral("Inhibit")) << programName << reason, promiseIn};
}

/// The promise is an open file, and lasts until its last copy is closed.
Inhibition logindInhibition(const QDBusConnection& system) {
    const auto request =
        QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"))
        << QStringLiteral("idle:sleep") << programName << reason << QStringLiteral("block");
    const auto promiseIn = [](const QDBusMessage& reply) {
        const auto file = reply.arguments().value(0).value<QDBusUnixFileDescriptor>();
        return file.isValid() ? Inhibition::Promise{[file] {}, {}} : Inhibition::Promise();
    };
    return {system, request, promiseIn};
}

} // namespace

std::vector<Inhibition> inhibitions(const QDBusConnection& session, const QDBusConnection& system) {
    return {portalInhibition(session), screenSaverInhibition(session), logindInhibition(system)};
}

void connectPortalResponse(QDBusConnection session, QObject& receiver, const char* slot) {
    // From any sender: finding out which one is the portal would wait for the bus.
    session.connect({}, {}, portalRequest, QStringLiteral("Response"), &receiver, slot);
}

} // namespace vexa
