#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QString>

#include <memory>
#include <vector>

namespace vexa {

/// A service that can be asked to let the machine neither sleep nor lock its screen. Each takes its
/// promise back by itself when the program that asked is gone.
class Inhibition {
public:
    virtual ~Inhibition() = default;

    virtual QDBusConnection bus() const = 0;
    virtual QDBusMessage request() = 0;
    /// Whether the reply to the request is a promise.
    virtual bool take(const QDBusMessage& reply) = 0;
    /// Gives back what was promised, and what may be promised later to a request that got no reply.
    virtual void release() = 0;
};

/// Those that there may be, the one to be asked first in front: the desktop portal, the screen
/// saver's, and logind's.
std::vector<std::unique_ptr<Inhibition>> inhibitions(const QDBusConnection& session,
                                                     const QDBusConnection& system);

} // namespace vexa
