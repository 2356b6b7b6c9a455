#include "defaults/user_defaults.h"

#include "engine/Vexa_RemoteAppDelegate.h"

namespace vexa {

namespace {

constexpr double standardDelay = 5.0;

std::uint64_t code(const char* key, std::uint64_t standard) {
    return static_cast<std::uint64_t>(
        defaults::integer(key).value_or(static_cast<std::int64_t>(standard)));
}

std::int64_t stored(std::uint64_t code) { return static_cast<std::int64_t>(code); }

} // namespace

bool Vexa_RemoteAppDelegate::readPrefs() {
    m_delayInSeconds = defaults::number(defaults::delayKey).value_or(standardDelay);
    m_defaultFrameRate = code(defaults::frameRateKey, rate::fps30);
    m_defaultSyncType = code(defaults::syncTypeKey, sync::mtc);
    m_pauseForReelChange = defaults::number(defaults::pauseForReelKey).value_or(1) != 0;
    return true;
}

void Vexa_RemoteAppDelegate::writePrefs() {
    defaults::setReal(defaults::delayKey, m_delayInSeconds);
    defaults::setInteger(defaults::frameRateKey, stored(m_defaultFrameRate));
    defaults::setInteger(defaults::syncTypeKey, stored(m_defaultSyncType));
    defaults::setBoolean(defaults::pauseForReelKey, m_pauseForReelChange);
}

} // namespace vexa
