#pragma once

#include "timecode/timecode.h"

#include <QObject>

#include <cstdint>

namespace vexa {

class Vexa_RemoteAppDelegate;

/// Holds a time and shows it. The fields are counts, not digits, and follow the frame rate of the
/// owner: when that changes while the transport is stopped, the shown time is brought into line
/// with it.
class TimecodeDisplay {
public:
    explicit TimecodeDisplay(int tag = 0) : m_tag(tag) {}
    virtual ~TimecodeDisplay();
    TimecodeDisplay(const TimecodeDisplay&) = delete;
    TimecodeDisplay& operator=(const TimecodeDisplay&) = delete;

    /// The controller whose rate counts; it must outlive this, or be replaced by none before.
    void setOwner(Vexa_RemoteAppDelegate* owner);
    Vexa_RemoteAppDelegate* owner() const { return m_owner; }

    /// Tells the controller which of its times this shows.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

    std::uint64_t hours() const { return m_time.hours; }
    std::uint64_t minutes() const { return m_time.minutes; }
    std::uint64_t seconds() const { return m_time.seconds; }
    std::uint64_t frames() const { return m_time.frames; }

    PackedTimecode bcdValue() const { return pack(m_time); }
    void setBcdValue(std::uint64_t value);

    /// Moves the time on by that many frames, with carries, wrap and drop-frame numbers.
    void incFrames(std::uint64_t count);

    /// Ends (0) or begins (1) the entry of a time, where the display can be typed into.
    virtual void setState(int) {}
    virtual int state() const { return 0; }

protected:
    /// The fields hold another time: show it.
    virtual void timeFieldsChanged() {}

    Timecode& timeFields() { return m_time; }
    const Timecode& timeFields() const { return m_time; }

private:
    int m_tag;
    Timecode m_time;
    Vexa_RemoteAppDelegate* m_owner = nullptr;
    QMetaObject::Connection m_rateChanges;
};

} // namespace vexa
