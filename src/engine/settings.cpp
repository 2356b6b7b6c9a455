#include "defaults/user_defaults.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/sync_type.h"

#include <initializer_list>

namespace vexa {

namespace {

constexpr double standardDelay = 5.0;

std::uint64_t code(const char* key, std::uint64_t standard) {
    return static_cast<std::uint64_t>(
        defaults::integer(key).value_or(static_cast<std::int64_t>(standard)));
}

qlonglong stored(std::uint64_t code) { return static_cast<qlonglong>(code); }

} // namespace

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
    m_plan.delayInSeconds = defaults::number(defaults::delayKey).value_or(standardDelay);
    m_defaultFrameRate = code(defaults::frameRateKey, rate::fps30);
    m_defaultSyncType = code(defaults::syncTypeKey, sync::mtc);
    m_plan.pauseForReelChange = defaults::number(defaults::pauseForReelKey).value_or(1) != 0;
    return true;
}

void Vexa_RemoteAppDelegate::writePrefs() {
    defaults::write({{defaults::delayKey, m_plan.delayInSeconds},
                     {defaults::frameRateKey, stored(m_defaultFrameRate)},
                     {defaults::syncTypeKey, stored(m_defaultSyncType)},
                     {defaults::pauseForReelKey, m_plan.pauseForReelChange}});
}

} // namespace vexa
