#include "defaults/user_defaults.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/sync_type.h"

#include <initializer_list>

namespace vexa {

void Vexa_RemoteAppDelegate::setFrameRate(std::uint64_t code) {
    m_plan.settings.frameRate = code;
    announceFrameRate();
}

void Vexa_RemoteAppDelegate::announceFrameRate() {
    const auto& rate = frameRateForCode(frameRate());
    const bool isStopped = m_transportState == transport::stopped;
    for (TimecodeDisplay* display : std::initializer_list<TimecodeDisplay*>{
             &*m_outlets.currentTimeButton, &*m_outlets.startTimeButton,
             &*m_outlets.endTimeButton}) {
        display->setFrameRate(rate);
        if (isStopped)
            display->frameRateChanged();
    }
    if (isStopped)
        Q_EMIT vexaratechg();
}

void Vexa_RemoteAppDelegate::setFrameAndSyncFromDefaults() {
    setFrameRate(m_defaultFrameRate);
    m_plan.settings.syncType = m_defaultSyncType;
    m_outlets.syncTypeMatrix->selectCellWithTag(m_defaultSyncType);
    handleFrameRateEnabling();
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::restoreCurrentSettings() {
    m_plan.settings = m_plan.saved;
    setFrameRate(m_plan.saved.frameRate);
    showSettings(m_plan.saved.startTime, m_plan.saved.stopTime);
}

void Vexa_RemoteAppDelegate::showSettings(std::uint64_t start, std::uint64_t stop) {
    handleFrameRateEnabling();
    m_outlets.syncTypeMatrix->selectCellWithTag(syncType());
    m_outlets.startTimeButton->setBcdValue(start);
    m_outlets.endTimeButton->setBcdValue(stop);
    Q_EMIT stateChanged();
}

bool Vexa_RemoteAppDelegate::readPrefs() {
    const auto stored = defaults::read();
    m_plan.delayInSeconds = stored.delayInSeconds.value_or(Preferences::standardDelay);
    m_defaultFrameRate = stored.defaultFrameRate.value_or(rate::fps30);
    m_defaultSyncType = stored.defaultSyncType.value_or(sync::mtc);
    m_plan.pauseForReelChange = stored.pauseForReelChange.value_or(true);
    return true;
}

void Vexa_RemoteAppDelegate::writePrefs() {
    defaults::write({.delayInSeconds = m_plan.delayInSeconds,
                     .defaultFrameRate = m_defaultFrameRate,
                     .defaultSyncType = m_defaultSyncType,
                     .pauseForReelChange = m_plan.pauseForReelChange});
}

} // namespace vexa
