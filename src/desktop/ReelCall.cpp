#include "desktop/ReelCall.h"

#include "desktop/application_id.h"
#include "stripe/StripeRun.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>
#include <QWidget>

#include <limits>
#include <utility>

namespace vexa {

namespace {

QDBusMessage messageTo(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

QDBusMessage notification(std::uint64_t reel) {
    constexpr uchar critical = 2;
    constexpr int never = 0; // as the time after which it expires
    const QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(critical)},
                            {QStringLiteral("sound-name"), QStringLiteral("message-attention")},
                            {QStringLiteral("desktop-entry"), applicationId}};
    auto message = messageTo(QStringLiteral("Notify"));
    message << QStringLiteral("Vexa Remote") << 0U << applicationId
            << QStringLiteral("Time to change reels")
            << QStringLiteral("Please load reel %1").arg(static_cast<std::int64_t>(reel))
            << QStringList() << hints << never;
    return message;
}

void close(const QDBusConnection& session, uint notification) {
    session.call(messageTo(QStringLiteral("CloseNotification")) << notification, QDBus::NoBlock);
}

} // namespace

ReelCall::ReelCall(QWidget& window, const StripeRun& run, const QDBusConnection& session)
    : m_window(window), m_session(session) {
    // Not at reelNeeded(), whose first listener asks the operator and returns with the answer.
    connect(&run, &StripeRun::phaseChanged, this, [this, &run] {
        withdraw();
        if (run.progress().phase == Phase::awaitingReel && !QApplication::activeWindow())
            call(run.progress().reel);
    });
}

void ReelCall::call(std::uint64_t reel) {
    QApplication::alert(&m_window);
    m_isCalling = true;
    constexpr int anyTime = std::numeric_limits<int>::max(); // even a late one must be closed
    auto* watcher =
        new QDBusPendingCallWatcher(m_session.asyncCall(notification(reel), anyTime), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, ofCall = ++m_calls] {
        watcher->deleteLater();
        const auto shown = watcher->reply().arguments().value(0);
        if (watcher->isError() || shown.typeId() != QMetaType::UInt)
            return;
        if (m_isCalling && ofCall == m_calls)
            m_notification = shown.toUInt();
        else
            close(m_session, shown.toUInt()); // the run went on before it was shown
    });
}

void ReelCall::withdraw() {
    m_isCalling = false;
    if (const auto shown = std::exchange(m_notification, 0))
        close(m_session, shown);
}

} // namespace vexa
