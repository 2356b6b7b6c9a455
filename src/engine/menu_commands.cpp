#include "engine/Vexa_RemoteAppDelegate.h"

namespace vexa {

void Vexa_RemoteAppDelegate::handleStripeMenuItems(std::uint64_t tag) {
    setTransportState(tag);
    setTransportButton(tag);
}

void Vexa_RemoteAppDelegate::handleSetStopTimeMenu() {
    setStopTimeSet(!m_stopTimeSet, m_stopTime, QStringLiteral("Set Stop Time"));
}

void Vexa_RemoteAppDelegate::handlePrefsMenu() { m_outlets.prefsController->showPreferences(); }

} // namespace vexa
