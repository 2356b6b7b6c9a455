#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

#include <functional>
#include <vector>

namespace vexa {

/// A service that can keep the machine awake and its screen unlocked. Each one withdraws its
/// promise when the program that asked is gone.
struct Inhibition {
    QDBusConnection bus;
    QDBusMessage request;

    struct Promise {
        std::function<void()> giveBack; ///< empty if nothing is promised
        QString object;                 ///< at the portal; empty for other services
    };
    /// What the reply to a request promises.
    std::function<Promise(const QDBusMessage& reply)> promiseIn;
};

/// All possible services in the order to ask them: the desktop portal, the screen saver's, and
/// logind's.
std::vector<Inhibition> inhibitions(const QDBusConnection& session, const QDBusConnection& system);

/// The portal promises before it has asked the desktop. Calls the slot, which takes (uint,
/// QVariantMap, QDBusMessage), with the desktop's answer: 0, or its refusal. The signal's path is
/// the promise's object.
void connectPortalResponse(QDBusConnection session, QObject& receiver, const char* slot);

} // namespace vexa
