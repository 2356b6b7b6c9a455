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

/// The link to the generator: builds its messages and sends them to the chosen destination. It
/// reports no failures: messages to a missing destination are lost. Main thread only.
class Vexa_MIDI_Manager : public QObject {
    Q_OBJECT

public:
    /// Sets the MIDI system, which must outlive its use here. Drops the shared manager; the next
    /// use creates a new one. The previous system must have been reached, or have ended.
    static void setMidiSystem(MidiSystem* system);

    /// Created on first use. Chooses the remembered destination and stops the generator there, or
    /// chooses the first destination. This happens once the system is reached, and earlier messages
    /// go out then. Call setMidiSystem() first.
    static Vexa_MIDI_Manager& sharedMidiManager();

    /// Sends the setup message, immediately followed by the start message. start is a packed
    /// timecode; bits above its 32 are ignored.
    void sendSetupMessageStart(std::uint64_t start, std::uint64_t frameRate, std::uint64_t type);
    /// Sends nothing, as the start message follows the setup. Kept for devices that need a separate
    /// start.
    void sendStartMessage() {}
    void sendStopMessage();
    /// as: how the status shows the message; its time is filled in. Without it, the status ignores
    /// the message.
    void sendMessage(std::span<const std::uint8_t> bytes,
                     const std::optional<DestinationStatus::Sent>& as = {});

    /// Waits a moment until what was sent before has been handed over; see MidiSystem.
    void awaitSent() { m_system.awaitSent(); }

    /// The names of all present destinations, in the system's order. Names may be empty or alike.
    /// The positions below refer to this list until the next call, whatever is plugged in or out.
    std::vector<std::string> destinationList();
    std::vector<MidiUniqueId> destinationIDs();
    /// Chooses the destination at a position of the list and stops the generator there. A position
    /// outside the list clears the destination and keeps destID().
    void connectToDestinationAtIndex(std::int64_t index);
    /// The position of destID(), or 0 if it is not among the destinations.
    std::int32_t indexOfDestination();

    /// Reads the remembered destID(). Returns false and changes nothing if none is stored.
    bool readPrefs();
    void writePrefs();

    MidiObjectRef dest() const { return m_dest; }
    void setDest(MidiObjectRef dest);
    MidiUniqueId destID() const { return m_destID; }
    void setDestID(MidiUniqueId id) { m_destID = id; }

    /// Whether the destination is there, and what was last sent to it. For information only.
    const DestinationStatus& status() const { return m_status; }

    static std::uint64_t bcdToHour(PackedTimecode value) { return unpack(value).hours; }
    static std::uint64_t bcdToMinute(PackedTimecode value) { return unpack(value).minutes; }
    static std::uint64_t bcdToSecond(PackedTimecode value) { return unpack(value).seconds; }
    static std::uint64_t bcdToFrame(PackedTimecode value) { return unpack(value).frames; }

Q_SIGNALS:
    /// Not emitted as the last message ages.
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
