#include "engine/TimecodeDisplay.h"

#include "engine/Vexa_RemoteAppDelegate.h"

namespace vexa {

TimecodeDisplay::~TimecodeDisplay() { QObject::disconnect(m_rateChanges); }

void TimecodeDisplay::setOwner(Vexa_RemoteAppDelegate* owner) {
    QObject::disconnect(m_rateChanges);
    m_owner = owner;
    if (owner)
        m_rateChanges = QObject::connect(owner, &Vexa_RemoteAppDelegate::vexaratechg, owner,
                                         [this] { incFrames(0); });
}

void TimecodeDisplay::setBcdValue(std::uint64_t value) {
    m_time = unpack(static_cast<PackedTimecode>(value));
    timeFieldsChanged();
}

void TimecodeDisplay::incFrames(std::uint64_t count) {
    m_time = advanced(m_time, count, frameRateForCode(m_owner->frameRate()));
    timeFieldsChanged();
}

} // namespace vexa
