#include "midi/jack/JackMidiDriver.h"

#include "midi/port_list.h"

#include <algorithm>

namespace vexa {

namespace {

/// A hardware port is called system:midi_playback_N, where N varies with what is plugged in. Its
/// alias names the hardware. Empty if it has none.
std::string hardwareAlias(const jack_port_t* port) {
    if (!(jack_port_flags(port) & JackPortIsPhysical))
        return {};
    const auto size = static_cast<std::size_t>(jack_port_name_size());
    std::string first(size, '\0');
    std::string second(size, '\0');
    char* const aliases[] = {first.data(), second.data()};
    return jack_port_get_aliases(port, aliases) > 0 ? first.substr(0, first.find('\0'))
                                                    : std::string{};
}

MidiPort described(const char* portName, const jack_port_t* jackPort, int session) {
    const auto alias = hardwareAlias(jackPort);
    MidiPort port;
    port.address = portName;
    port.name = alias.empty() ? portName : alias.substr(alias.find(':') + 1);
    port.identity = alias.empty() ? port.address : "hardware:" + port.name;
    // Every server numbers its ports from 1.
    port.presence = std::to_string(session) + '@' + port.address;
    port.whereabouts = alias.empty() ? std::string{} : "at " + port.address;
    return port;
}

} // namespace

bool JackMidiDriver::join() {
    if (m_session && !m_session->isAlive())
        m_session.reset();
    if (!m_session) {
        m_session = JackSession::open();
        ++m_sessions;
    }
    return m_session != nullptr;
}

std::vector<MidiPort> JackMidiDriver::ports() {
    if (!join())
        return {};
    std::vector<MidiPort> found;
    const std::unique_ptr<const char*[], void (*)(void*)> names(
        jack_get_ports(m_session->client(), nullptr, JACK_DEFAULT_MIDI_TYPE, JackPortIsInput),
        jack_free);
    for (auto* name = names.get(); name && *name; ++name)
        if (const auto* port = jack_port_by_name(m_session->client(), *name))
            found.push_back(described(*name, port, m_sessions));
    m_twins.number(found);
    putMidiThroughLast(found);
    return found;
}

bool JackMidiDriver::connectTo(const std::string& identity) {
    m_identity = identity;
    const auto listed = ports();
    const auto wanted = std::ranges::find(listed, identity, &MidiPort::identity);
    return wanted != listed.end() && m_session->connectTo(wanted->address);
}

bool JackMidiDriver::send(const std::string& identity, std::span<const std::uint8_t> message) {
    return connectTo(identity) && m_session->write(message) && m_session->isConnected();
}

bool JackMidiDriver::maintain() {
    return !m_identity.empty() && connectTo(m_identity) && m_session->isConnected();
}

} // namespace vexa
