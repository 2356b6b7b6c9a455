#include "desktop/Inhibition.h"

#include "desktop/application_id.h"

#include <QDBusObjectPath>
#include <QVariantMap>

namespace vexa {

namespace {

const auto programName = QStringLiteral("Vexa Remote");
const auto reason = QStringLiteral("Timecode is being striped");

void callWithoutReply(const QDBusConnection& bus, const QDBusMessage& message) {
    bus.call(message, QDBus::NoBlock);
}

class PortalInhibition final : public Inhibition {
public:
    explicit PortalInhibition(const QDBusConnection& session) : m_bus(session) {}

    QDBusConnection bus() const override { return m_bus; }

    QDBusMessage request() override {
        constexpr uint suspend = 4;
        constexpr uint idle = 8;
        const auto token = QStringLiteral("vexa%1").arg(++m_requests);
        const auto caller = m_bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
        m_handle =
            QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(caller, token);
        auto message = QDBusMessage::createMethodCall(
            service, QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
        const QVariantMap options{{QStringLiteral("reason"), reason},
                                  {QStringLiteral("handle_token"), token}};
        message << QString() << (suspend | idle) << options;
        return message;
    }

    bool take(const QDBusMessage& reply) override {
        const auto handle = reply.arguments().value(0).value<QDBusObjectPath>().path();
        if (!handle.isEmpty())
            m_handle = handle;
        return !handle.isEmpty();
    }

    void release() override {
        callWithoutReply(
            m_bus, QDBusMessage::createMethodCall(service, m_handle,
                                                  QStringLiteral("org.freedesktop.portal.Request"),
                                                  QStringLiteral("Close")));
    }

private:
    const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    QDBusConnection m_bus;
    QString m_handle; ///< known before the reply
    int m_requests = 0;
};

class ScreenSaverInhibition final : public Inhibition {
public:
    explicit ScreenSaverInhibition(const QDBusConnection& session) : m_bus(session) {}

    QDBusConnection bus() const override { return m_bus; }

    QDBusMessage request() override {
        m_cookie.clear();
        return call(QStringLiteral("Inhibit")) << programName << reason;
    }

    bool take(const QDBusMessage& reply) override {
        m_cookie = reply.arguments().value(0);
        return m_cookie.typeId() == QMetaType::UInt;
    }

    void release() override {
        if (m_cookie.typeId() == QMetaType::UInt)
            callWithoutReply(m_bus, call(QStringLiteral("UnInhibit")) << m_cookie);
    }

private:
    static QDBusMessage call(const QString& method) {
        return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                              QStringLiteral("/org/freedesktop/ScreenSaver"),
                                              QStringLiteral("org.freedesktop.ScreenSaver"),
                                              method);
    }

    QDBusConnection m_bus;
    QVariant m_cookie;
};

/// The promise is an open file, and lasts until the file is closed.
class LogindInhibition final : public Inhibition {
public:
    explicit LogindInhibition(const QDBusConnection& system) : m_bus(system) {}

    QDBusConnection bus() const override { return m_bus; }

    QDBusMessage request() override {
        auto message = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
        message << QStringLiteral("idle:sleep") << programName << reason << QStringLiteral("block");
        return message;
    }

    bool take(const QDBusMessage& reply) override {
        m_promise = reply.arguments().value(0).value<QDBusUnixFileDescriptor>();
        return m_promise.isValid();
    }

    void release() override { m_promise = QDBusUnixFileDescriptor(); }

private:
    QDBusConnection m_bus;
    QDBusUnixFileDescriptor m_promise;
};

} // namespace

std::vector<std::unique_ptr<Inhibition>> inhibitions(const QDBusConnection& session,
                                                     const QDBusConnection& system) {
    std::vector<std::unique_ptr<Inhibition>> all;
    all.push_back(std::make_unique<PortalInhibition>(session));
    all.push_back(std::make_unique<ScreenSaverInhibition>(session));
    all.push_back(std::make_unique<LogindInhibition>(system));
    return all;
}

} // namespace vexa
