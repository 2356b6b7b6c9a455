#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>
#include <vector>

namespace vexa {

/// A service that can keep the machine awake and its screen unlocked. Each one withdraws its
/// promise when the program that asked is gone.
struct Inhibition {
    QDBusConnection bus;
    QDBusMessage request;

    /// Gives a promise back. Empty if there is none.
    using GiveBack = std::function<void()>;
    /// What the reply to a request promises.
    std::function<GiveBack(const QDBusMessage& reply)> promiseIn;
};

/// All possible services in the order to ask them: the desktop portal, the screen saver's, and
/// logind's.
std::vector<Inhibition> inhibitions(const QDBusConnection& session, const QDBusConnection& system);

} // namespace vexa
