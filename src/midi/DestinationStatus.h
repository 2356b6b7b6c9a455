#pragma once

#include "timecode/timecode.h"

#include <chrono>
#include <optional>
#include <string>

namespace vexa {

/// What is known of the destination and of what went there. The generator answers nothing: what was
/// handed over to a destination that was there has been sent, which says nothing of its arrival.
struct DestinationStatus {
    using Clock = std::chrono::steady_clock;

    enum class Presence {
        unknown, ///< the MIDI system has not been reached so far
        none,    ///< no destination is chosen
        there,
        away, ///< unplugged, or its program has ended
    };
    enum class Message { setup, start, stop };

    struct Sent {
        Message message = Message::stop;
        PackedTimecode time = 0; ///< that a setup or a start carries
        Clock::time_point at{};
        bool operator==(const Sent&) const = default;
    };

    Presence presence = Presence::unknown;
    std::string name;         ///< as it comes from the device; empty where none is chosen
    std::optional<Sent> sent; ///< last; what was lost does not count

    bool operator==(const DestinationStatus&) const = default;
};

/// "start 01:00:00:00", "setup 01:00:00:00", "stop"
std::string messageText(const DestinationStatus::Sent& sent);

/// "Timecode Box MIDI 1 · start 01:00:00:00 · 2 s ago", "no destination", "Timecode Box MIDI 1 is
/// not there"; nothing while nothing is known.
std::string statusText(const DestinationStatus& status, DestinationStatus::Clock::time_point now);

} // namespace vexa
