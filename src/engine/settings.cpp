#include "engine/Vexa_RemoteAppDelegate.h"

namespace vexa {

void Vexa_RemoteAppDelegate::setFrameRate(std::uint64_t code) {
    m_frameRate = code;
    if (m_transportState == transport::stopped)
        Q_EMIT vexaratechg();
}

void Vexa_RemoteAppDelegate::setFrameAndSyncFromDefaults() {
    setFrameRate(m_defaultFrameRate);
    m_syncType = m_defaultSyncType;
    m_outlets.syncTypeMatrix->selectCellWithTag(m_syncType);
    handleFrameRateEnabling();
    Q_EMIT stateChanged();
}

} // namespace vexa
