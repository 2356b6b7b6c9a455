#pragma once

#include <QByteArray>

namespace vexa {

/// Tells an X desktop that the launch with that startup ID has finished, so it stops showing launch
/// feedback. Uses the Startup Notification Protocol; does nothing on other platforms.
void endStartupNotification(const QByteArray& startupId);

} // namespace vexa
