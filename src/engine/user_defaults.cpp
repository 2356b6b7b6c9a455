#include "defaults/user_defaults.h"

#include "engine/Vexa_RemoteAppDelegate.h"

namespace vexa {

namespace {

constexpr double standardDelay = 5.0;

std::uint64_t code(const char* key, std::uint64_t standard) {
    return static_cast<std::uint64_t>(
        defaults::integer(key).value_or(static_cast<std::int64_t>(standard)));
}

qlonglong stored(std::uint64_t code) { return static_cast<qlonglong>(code); }

} // namespace

bool Vexa_RemoteAppDelegate::readPrefs() {
    m_delayInSeconds = defaults::number(defaults::delayKey).value_or(standardDelay);
    m_defaultFrameRate = code(defaults::frameRateKey, rate::fps30);
    m_defaultSyncType = code(defaults::syncTypeKey, sync::mtc);
    m_pauseForReelChange = defaults::number(defaults::pauseForReelKey).value_or(1) != 0;
    return true;
}

void Vexa_RemoteAppDelegate::writePrefs() {
    defaults::write({{defaults::delayKey, m_delayInSeconds},
                     {defaults::frameRateKey, stored(m_defaultFrameRate)},
                     {defaults::syncTypeKey, stored(m_defaultSyncType)},
                     {defaults::pauseForReelKey, m_pauseForReelChange}});
}

} // namespace vexa
