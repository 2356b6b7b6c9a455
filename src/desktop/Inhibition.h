#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QString>

#include <memory>
#include <vector>

namespace vexa {

/// A service that can keep the machine awake and its screen unlocked. Each one withdraws its
/// promise when the program that asked is gone.
class Inhibition {
public:
    virtual ~Inhibition() = default;

    virtual QDBusConnection bus() const = 0;
    virtual QDBusMessage request() = 0;
    /// Returns whether the reply to the request is a promise.
    virtual bool take(const QDBusMessage& reply) = 0;
    /// Gives back the promise, including one that an unanswered request may still receive.
    virtual void release() = 0;
};

/// All possible services in the order to ask them: the desktop portal, the screen saver's, and
/// logind's.
std::vector<std::unique_ptr<Inhibition>> inhibitions(const QDBusConnection& session,
                                                     const QDBusConnection& system);

} // namespace vexa
