#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vexa {

/// The names of the program and its port in the MIDI system.
inline constexpr auto midiClientName = "Vexa Remote";
inline constexpr auto midiOutputPortName = "Output port";

/// A possible destination, as a driver finds it.
struct MidiPort {
    /// Stays the same when the port is replugged or renumbered. Differs from every other port in
    /// the list.
    std::string identity;
    std::string address; ///< where the driver finds it now
    std::string name;
    /// Identity and name of the device that the port belongs to. Both are empty for a program's
    /// port.
    std::string device;
    std::string deviceName;
    /// The identity without the socket, for a device with a serial number; otherwise empty.
    std::string identityInAnySocket{};
    /// Tells this port from a later one, even of the same identity.
    std::string presence{};
    /// Helps people to tell ports of the same name apart; may be empty.
    std::string whereabouts{};
};

/// Access to a MIDI system. All calls come on one thread. They may wait for the system, but never
/// for an answer that may not come. If the system is missing or was lost, every call tries it
/// again.
class MidiDriver {
public:
    virtual ~MidiDriver() = default;

    /// The ports, in list order.
    virtual std::vector<MidiPort> ports() = 0;

    /// Sends a whole message to the port with that identity, wherever it is now. Drops it if the
    /// port is missing. Returns whether it was handed over.
    virtual bool send(const std::string& identity, std::span<const std::uint8_t> message) = 0;

    /// Called every few seconds while no message is due, to restore lost connections before the
    /// next one. Returns whether the last message's port can be reached.
    virtual bool maintain() = 0;
};

} // namespace vexa
