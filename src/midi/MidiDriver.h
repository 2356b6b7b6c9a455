#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vexa {

/// How the program and its port appear to others in the MIDI system.
inline constexpr auto midiClientName = "Vexa Remote";
inline constexpr auto midiOutputPortName = "Output port";

/// One place that messages can be sent to, as a driver finds it.
struct MidiPort {
    /// What stays the same when the port is replugged or renumbered, and differs from every other
    /// port in the list.
    std::string identity;
    std::string address; ///< where the driver finds it now
    std::string name;
    /// The device that the port belongs to: what tells it from others, and its name. Both empty
    /// for a port of a program.
    std::string device;
    std::string deviceName;
    /// What the identity would be in any socket, for a device with a serial number; else empty.
    std::string identityInAnySocket{};
    /// What tells this port from the one that comes when it has gone, be it of the same identity.
    std::string presence{};
    /// What tells the port from others of its name, for people; may be empty.
    std::string whereabouts{};
};

/// How a MIDI system is reached. All calls come on one thread, which they may keep waiting for
/// the system, never for an answer that may not come. A system that is not there, or that went
/// away, is tried again at each call.
class MidiDriver {
public:
    virtual ~MidiDriver() = default;

    /// The ports in the order to be listed.
    virtual std::vector<MidiPort> ports() = 0;

    /// Sends a whole message to the port of that identity, wherever the port is by now; drops it
    /// when the port is not there. Whether it was handed over.
    virtual bool send(const std::string& identity, std::span<const std::uint8_t> message) = 0;

    /// Called every few seconds while nothing is to be sent: the moment to win back what was
    /// lost, so that the next message finds the way open. Whether it is, for the port that the last
    /// one was for.
    virtual bool maintain() = 0;
};

} // namespace vexa
