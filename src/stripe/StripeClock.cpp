#include "stripe/StripeClock.h"

#include "timecode/timecode.h"

namespace vexa {

void StripeClock::start() {
    stop();
    m_hasTicked = false;
    m_tickingRate = &frameRateForCode(m_settings.frameRate);
    const RunLoop::Seconds interval(m_tickingRate->frameInterval);
    m_timer = m_runLoop.scheduleTimer(interval, true, [this] { tick(); });
}

void StripeClock::tick() {
    m_now = advanced(static_cast<PackedTimecode>(m_now), 1, frameRateForCode(m_settings.frameRate));
    m_hasTicked = true;
    m_ticked();
}

} // namespace vexa
