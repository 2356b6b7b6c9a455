#include "midi/Vexa_MIDI_Manager.h"

#include "defaults/user_defaults.h"
#include "midi/device_messages.h"
#include "midi/display_name.h"

#include <QPointer>

#include <algorithm>

namespace vexa {

namespace {
MidiSystem* currentSystem = nullptr;
std::unique_ptr<Vexa_MIDI_Manager> sharedManager;

using Message = DestinationStatus::Message;
using Presence = DestinationStatus::Presence;
} // namespace

void Vexa_MIDI_Manager::setMidiSystem(MidiSystem* system) {
    sharedManager.reset();
    currentSystem = system;
}

Vexa_MIDI_Manager& Vexa_MIDI_Manager::sharedMidiManager() {
    if (!sharedManager) {
        sharedManager.reset(new Vexa_MIDI_Manager(*currentSystem));
        sharedManager->restoreDestination();
    }
    return *sharedManager;
}

Vexa_MIDI_Manager::Vexa_MIDI_Manager(MidiSystem& system) : m_system(system) {
    m_system.whenSeen([self = QPointer(this)](MidiObjectRef dest, bool isThere) {
        if (self)
            self->notePresence(dest, isThere);
    });
}

void Vexa_MIDI_Manager::restoreDestination() {
    const bool isRemembered = readPrefs();
    m_system.whenReached([this, isRemembered] { chooseDestination(isRemembered); });
}

void Vexa_MIDI_Manager::chooseDestination(bool isRemembered) {
    if (isRemembered) {
        const auto remembered = m_system.findByUniqueId(m_destID);
        if (remembered) {
            setDest(remembered->ref);
            m_destID = m_system.uniqueId(m_dest).value_or(m_destID);
        }
        sendStopMessage();
        if (remembered)
            return;
    }
    // Not saved to the defaults, so the remembered device is chosen again when it is back.
    m_destID = 0;
    const bool isAny = m_system.numberOfDestinations() != 0;
    setDest(isAny ? m_system.destination(0) : 0);
    m_destID = m_system.uniqueId(m_dest).value_or(0);
}

void Vexa_MIDI_Manager::setDest(MidiObjectRef dest) {
    m_dest = dest;
    if (dest)
        setStatus({Presence::there, destinationName(m_system, dest), {}});
    else
        setStatus({Presence::none, {}, {}});
}

void Vexa_MIDI_Manager::sendSetupMessageStart(std::uint64_t start, std::uint64_t frameRate,
                                              std::uint64_t type) {
    const auto time = static_cast<PackedTimecode>(start);
    sendMessage(setupMessage(time, frameRate, type), {{Message::setup, time}});
    sendMessage(startMessage(time), {{Message::start, time}});
}

void Vexa_MIDI_Manager::sendStopMessage() { sendMessage(stopMessage(), {{Message::stop}}); }

void Vexa_MIDI_Manager::sendMessage(std::span<const std::uint8_t> bytes,
                                    const std::optional<DestinationStatus::Sent>& as) {
    // The destination is unknown until the system is reached. Until then, messages wait in order.
    m_system.whenReached([this, as, message = std::vector(bytes.begin(), bytes.end())] {
        m_system.send(m_dest, message,
                      [self = QPointer(this), dest = m_dest, as](const MidiDelivery& delivery) {
                          if (self)
                              self->noteDelivery(dest, delivery, as);
                      });
    });
}

void Vexa_MIDI_Manager::noteDelivery(MidiObjectRef dest, const MidiDelivery& delivery,
                                     const std::optional<DestinationStatus::Sent>& as) {
    notePresence(dest, delivery.handedOver);
    if (dest != m_dest || !delivery.handedOver || !as)
        return;
    auto status = m_status;
    status.sent = as;
    status.sent->at = delivery.at;
    setStatus(std::move(status));
}

void Vexa_MIDI_Manager::notePresence(MidiObjectRef dest, bool isThere) {
    if (dest != m_dest)
        return; // no longer the chosen one
    auto status = m_status;
    status.presence = isThere ? Presence::there : Presence::away;
    setStatus(std::move(status));
}

void Vexa_MIDI_Manager::setStatus(DestinationStatus status) {
    if (status == m_status)
        return;
    m_status = std::move(status);
    Q_EMIT statusChanged();
}

std::vector<std::string> Vexa_MIDI_Manager::destinationList() { return destinationNames(m_system); }

std::vector<MidiUniqueId> Vexa_MIDI_Manager::destinationIDs() {
    std::vector<MidiUniqueId> ids;
    while (const auto destination = m_system.destination(ids.size()))
        ids.push_back(m_system.uniqueId(destination).value_or(0));
    return ids;
}

void Vexa_MIDI_Manager::connectToDestinationAtIndex(std::int64_t index) {
    setDest(index < 0 ? 0 : m_system.destination(static_cast<std::size_t>(index)));
    m_destID = m_system.uniqueId(m_dest).value_or(m_destID);
    sendStopMessage();
}

std::int32_t Vexa_MIDI_Manager::indexOfDestination() {
    const auto ids = destinationIDs();
    const auto found = std::ranges::find(ids, m_destID);
    return found == ids.end() ? 0 : static_cast<std::int32_t>(found - ids.begin());
}

bool Vexa_MIDI_Manager::readPrefs() {
    const auto stored = defaults::read().midiDestination;
    m_destID = stored.value_or(m_destID);
    return stored.has_value();
}

void Vexa_MIDI_Manager::writePrefs() { defaults::write({.midiDestination = m_destID}); }

} // namespace vexa
