#pragma once

#include "midi/DestinationStatus.h"
#include "midi/MidiSystem.h"
#include "timecode/timecode.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vexa {

/// The link to the generator: builds its messages and sends them to the one chosen destination.
/// No failure is ever reported: a message to a destination that is missing is lost. Main thread
/// only.
class Vexa_MIDI_Manager : public QObject {
    Q_OBJECT

public:
    /// The MIDI system to use. The shared manager of an earlier system is forgotten with it; the
    /// new one is made on first use. The system must outlive its use here; the earlier one must
    /// have been reached, or have ended.
    static void setMidiSystem(MidiSystem* system);

    /// Made on first use: takes up the remembered destination and stops the generator there, or
    /// else takes the first destination there is. All that once the system has been reached; what
    /// is sent sooner goes out then. setMidiSystem() must have been called.
    static Vexa_MIDI_Manager& sharedMidiManager();

    /// Sends the setup message and, at once, the start message. start is a packed timecode; what
    /// it holds above its 32 bits is cut off.
    void sendSetupMessageStart(std::uint64_t start, std::uint64_t frameRate, std::uint64_t type);
    /// Sends nothing: the start message has gone out with the setup. Kept as the place for
    /// devices that want a start of their own.
    void sendStartMessage() {}
    void sendStopMessage();
    /// as: what it counts as in the status, but for its moment. Without, it is not told of there.
    void sendMessage(std::span<const std::uint8_t> bytes,
                     const std::optional<DestinationStatus::Sent>& as = {});

    /// A name for each destination that there is now, in the system's order; names may be empty or
    /// alike. Positions below are those of this list until it is asked for again, whatever is
    /// plugged in or out meanwhile.
    std::vector<std::string> destinationList();
    std::vector<MidiUniqueId> destinationIDs();
    /// Makes the destination at a position of the list the current one and stops the generator
    /// there. A position outside the list leaves no destination and keeps destID().
    void connectToDestinationAtIndex(std::int64_t index);
    /// The position of destID(), or 0 when it is not among the destinations.
    std::int32_t indexOfDestination();

    /// Takes the remembered destID(). False, and nothing taken, when none was ever remembered.
    bool readPrefs();
    void writePrefs();

    MidiObjectRef dest() const { return m_dest; }
    void setDest(MidiObjectRef dest);
    MidiUniqueId destID() const { return m_destID; }
    void setDestID(MidiUniqueId id) { m_destID = id; }

    /// Of the destination: whether it is there, and what was sent last. It tells and changes
    /// nothing.
    const DestinationStatus& status() const { return m_status; }

    static std::uint64_t bcdToHour(PackedTimecode value) { return unpack(value).hours; }
    static std::uint64_t bcdToMinute(PackedTimecode value) { return unpack(value).minutes; }
    static std::uint64_t bcdToSecond(PackedTimecode value) { return unpack(value).seconds; }
    static std::uint64_t bcdToFrame(PackedTimecode value) { return unpack(value).frames; }

Q_SIGNALS:
    /// Not of the time that passes.
    void statusChanged();

private:
    explicit Vexa_MIDI_Manager(MidiSystem& system);
    void restoreDestination();
    void chooseDestination(bool isRemembered);
    void setStatus(DestinationStatus status);
    void noteDelivery(MidiObjectRef dest, const MidiDelivery& delivery,
                      const std::optional<DestinationStatus::Sent>& as);
    void notePresence(MidiObjectRef dest, bool isThere);

    MidiSystem& m_system;
    MidiObjectRef m_dest = 0;
    MidiUniqueId m_destID = 0;
    DestinationStatus m_status;
};

} // namespace vexa
