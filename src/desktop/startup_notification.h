#pragma once

#include <QByteArray>

namespace vexa {

/// Tells an X desktop that the launch of that startup ID has come to its end, so that it no longer
/// shows that something is on its way: a message of the Startup Notification Protocol. Does nothing
/// on other platforms.
void endStartupNotification(const QByteArray& startupId);

} // namespace vexa
