#include "midi/Vexa_MIDI_Manager.h"

#include "defaults/user_defaults.h"
#include "midi/device_messages.h"
#include "midi/display_name.h"

#include <algorithm>

namespace vexa {

namespace {
MidiSystem* currentSystem = nullptr;
std::unique_ptr<Vexa_MIDI_Manager> sharedManager;
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

void Vexa_MIDI_Manager::restoreDestination() {
    const bool isRemembered = readPrefs();
    m_system.whenReached([this, isRemembered] { chooseDestination(isRemembered); });
}

void Vexa_MIDI_Manager::chooseDestination(bool isRemembered) {
    if (isRemembered) {
        const auto remembered = m_system.findByUniqueId(m_destID);
        if (remembered) {
            m_dest = remembered->ref;
            m_destID = m_system.uniqueId(m_dest).value_or(m_destID);
        }
        sendStopMessage();
        if (remembered)
            return;
    }
    // Not written to the defaults: the remembered device is chosen again once it is back.
    m_destID = 0;
    if (m_system.numberOfDestinations() == 0)
        return;
    m_dest = m_system.destination(0);
    m_destID = m_system.uniqueId(m_dest).value_or(0);
}

void Vexa_MIDI_Manager::sendSetupMessageStart(std::uint64_t start, std::uint64_t frameRate,
                                              std::uint64_t type) {
    const auto time = static_cast<PackedTimecode>(start);
    sendMessage(setupMessage(time, frameRate, type));
    sendMessage(startMessage(time));
}

void Vexa_MIDI_Manager::sendStopMessage() { sendMessage(stopMessage()); }

void Vexa_MIDI_Manager::sendMessage(std::span<const std::uint8_t> bytes) {
    // To whom is known once the system has been reached; until then messages keep their order.
    m_system.whenReached([this, message = std::vector(bytes.begin(), bytes.end())] {
        m_system.send(m_dest, message);
    });
}

std::vector<std::string> Vexa_MIDI_Manager::destinationList() { return destinationNames(m_system); }

std::vector<MidiUniqueId> Vexa_MIDI_Manager::destinationIDs() {
    std::vector<MidiUniqueId> ids;
    while (const auto destination = m_system.destination(ids.size()))
        ids.push_back(m_system.uniqueId(destination).value_or(0));
    return ids;
}

void Vexa_MIDI_Manager::connectToDestinationAtIndex(std::int64_t index) {
    m_dest = index < 0 ? 0 : m_system.destination(static_cast<std::size_t>(index));
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
