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

/// Names an object of the MIDI system while the program runs; 0 is none. The reference of a
/// destination that is unplugged stays its own, and works again once it is back.
using MidiObjectRef = std::uint32_t;

/// Names a destination across launches, replugging and renumbering; 0 is none.
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

/// What became of a message.
struct MidiDelivery {
    bool handedOver = false; ///< to a destination that was there
    std::chrono::steady_clock::time_point at{};
};

/// What the program asks of a MIDI system, whichever it is. Objects form a tree: a device has
/// entities, an entity has endpoints; an endpoint of a program has neither. A property or object
/// that is absent, or a reference that names nothing, gives nothing, never an error. Called on
/// one thread; no call waits on a device.
class MidiSystem {
public:
    virtual ~MidiSystem() = default;

    /// Calls once it is known what destinations there are: at once, where that is so by now. Calls
    /// keep their order. Whoever asks for destinations sooner gets none, or waits for them.
    virtual void whenReached(std::function<void()> then) { then(); }

    /// Reads the system anew. Positions stand for this reading until the next.
    virtual std::size_t numberOfDestinations() = 0;
    virtual MidiObjectRef destination(std::size_t position) = 0;
    /// Finds only what is there now: the destination of that ID; where there is none, the only one
    /// that may have had it, as a device with a serial number that was in another socket.
    virtual std::optional<MidiObject> findByUniqueId(MidiUniqueId id) = 0;

    virtual std::optional<std::string> name(MidiObjectRef object) = 0;
    virtual std::optional<MidiUniqueId> uniqueId(MidiObjectRef object) = 0;
    /// What tells a destination from others of its name, for people: "serial number A1, socket
    /// 0000:00:14.0-2".
    virtual std::optional<std::string> whereabouts(MidiObjectRef destination) = 0;
    /// Unique IDs of what is cabled to an endpoint, signed 32 bits each, most significant byte
    /// first.
    virtual std::optional<std::vector<std::uint8_t>> connectionUniqueIds(MidiObjectRef object) = 0;
    virtual MidiObjectRef entityOfEndpoint(MidiObjectRef endpoint) = 0;
    virtual MidiObjectRef deviceOfEntity(MidiObjectRef entity) = 0;
    virtual std::size_t numberOfEntities(MidiObjectRef device) = 0;

    using Delivered = std::function<void(const MidiDelivery&)>;
    /// Takes one whole message and returns. Messages reach a destination in the order of the
    /// calls; to one that is not there, they are lost. What became of it is told on the thread of
    /// the calls, some time later; of a message to what never was a destination, nothing.
    virtual void send(MidiObjectRef destination, std::span<const std::uint8_t> message,
                      Delivered then = {}) = 0;

    using Seen = std::function<void(MidiObjectRef destination, bool isThere)>;
    /// Tells when the destination of the last message is seen to have gone or to be back, likewise.
    /// There is one listener at most.
    virtual void whenSeen(Seen) {}
};

} // namespace vexa
