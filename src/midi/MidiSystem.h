#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vexa {

/// An object of the MIDI system while the program runs; 0 is none. An unplugged destination keeps
/// its reference, which works again once the destination is back.
using MidiObjectRef = std::uint32_t;

/// Identifies a destination across launches, replugging and renumbering; 0 is none.
using MidiUniqueId = std::int32_t;

enum class MidiObjectType : std::uint32_t {
    device = 0x00,
    entity = 0x01,
    source = 0x02,
    destination = 0x03,
    externalDevice = 0x10,
    externalEntity = 0x11,
    externalSource = 0x12,
    externalDestination = 0x13,
};

struct MidiObject {
    MidiObjectRef ref = 0;
    MidiObjectType type = MidiObjectType::destination;
};

/// The outcome of a message.
struct MidiDelivery {
    bool handedOver = false; ///< to a destination that was there
    std::chrono::steady_clock::time_point at{};
};

/// The program's view of a MIDI system. Objects form a tree: devices have entities, entities have
/// endpoints. A program's endpoint has neither entity nor device. Missing properties and objects,
/// and unknown references, return nothing, never an error. Called on one thread; only awaitSent()
/// waits for a device, and not for long.
class MidiSystem {
public:
    virtual ~MidiSystem() = default;

    /// Calls back once the destinations are known; at once, if they already are. Callbacks keep
    /// their order. Until then, reading the destinations gives none or waits.
    virtual void whenReached(std::function<void()> then) { then(); }

    /// Reads the system again. Positions refer to this reading until the next.
    virtual std::size_t numberOfDestinations() = 0;
    virtual MidiObjectRef destination(std::size_t position) = 0;
    /// Finds only present destinations: the one with that ID or, failing that, the only one that
    /// may have had it. That can be a device with a serial number that was in another socket.
    virtual std::optional<MidiObject> findByUniqueId(MidiUniqueId id) = 0;

    virtual std::optional<std::string> name(MidiObjectRef object) = 0;
    virtual std::optional<MidiUniqueId> uniqueId(MidiObjectRef object) = 0;
    /// Helps people to tell destinations of the same name apart: "serial number A1, socket
    /// 0000:00:14.0-2".
    virtual std::optional<std::string> whereabouts(MidiObjectRef destination) = 0;
    /// Unique IDs of the objects cabled to an endpoint, as signed 32-bit big-endian numbers.
    virtual std::optional<std::vector<std::uint8_t>> connectionUniqueIds(MidiObjectRef object) = 0;
    virtual MidiObjectRef entityOfEndpoint(MidiObjectRef endpoint) = 0;
    virtual MidiObjectRef deviceOfEntity(MidiObjectRef entity) = 0;
    virtual std::size_t numberOfEntities(MidiObjectRef device) = 0;

    using Delivered = std::function<void(const MidiDelivery&)>;
    /// Takes one whole message and returns. Messages reach a destination in the order of the calls;
    /// messages to a missing destination are lost. The outcome is reported later, on the calling
    /// thread. It is not reported for a reference that never was a destination.
    virtual void send(MidiObjectRef destination, std::span<const std::uint8_t> message,
                      Delivered then = {}) = 0;

    /// Waits until what was sent before has been handed over, a quarter of a second at most. What
    /// is sent next meets an open connection. If the device hangs, the next call does not wait
    /// again.
    virtual void awaitSent() {}

    using Seen = std::function<void(MidiObjectRef destination, bool isThere)>;
    /// Reports, on the same thread, when the last message's destination disappears or returns.
    /// There is at most one listener.
    virtual void whenSeen(Seen) {}
};

} // namespace vexa
