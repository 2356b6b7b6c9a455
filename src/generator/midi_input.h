#pragma once

#include "generator/moment.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace vexa {

inline constexpr const char* generatorName = "Vexa Generator";

/// A MIDI destination of our own on one of the MIDI systems, for as long as it lives.
class MidiInput {
public:
    enum class Outcome {
        Read, ///< all that had arrived was handed on
        Lost, ///< what would have come next was lost for want of room; there may be more
        Gone, ///< the MIDI system has gone away, and nothing will arrive any more
    };
    using Receiver = std::function<void(Moment arrival, std::span<const std::uint8_t> bytes)>;

    MidiInput() = default;
    virtual ~MidiInput() = default;
    MidiInput(const MidiInput&) = delete;
    MidiInput& operator=(const MidiInput&) = delete;

    /// The name that senders find it under.
    virtual std::string name() const = 0;

    /// Polls readable when read() has something to do.
    virtual int descriptor() const = 0;

    /// Hands on what has arrived, in order. Does not block.
    virtual Outcome read(const Receiver& receiver) = 0;
};

/// A MIDI system to be a destination on.
struct InputSystem {
    std::string name;    ///< "JACK"
    std::string absence; ///< what keeps it from being used when open() gives nothing
    std::unique_ptr<MidiInput> (*open)();
};

} // namespace vexa
