#pragma once

#include "timecode/timecode.h"

#include <chrono>
#include <optional>
#include <string>

namespace vexa {

/// What is known of the destination and of the messages sent to it. The generator does not reply. A
/// message counts as sent when it was handed over to a destination that was there, even if it never
/// arrived.
struct DestinationStatus {
    using Clock = std::chrono::steady_clock;

    enum class Presence {
        unknown, ///< the MIDI system has not been reached yet
        none,    ///< no destination is chosen
        there,
        away, ///< unplugged, or its program has ended
    };
    enum class Message { setup, start, stop };

    struct Sent {
        Message message = Message::stop;
        PackedTimecode time = 0; ///< of a setup or a start
        Clock::time_point at{};
        bool operator==(const Sent&) const = default;
    };

    Presence presence = Presence::unknown;
    std::string name;         ///< as the device reports it; empty if no destination is chosen
    std::optional<Sent> sent; ///< the last message that was not lost

    bool operator==(const DestinationStatus&) const = default;
};

/// "start 01:00:00:00", "setup 01:00:00:00", "stop"
std::string messageText(const DestinationStatus::Sent& sent);

/// "Timecode Box MIDI 1 · start 01:00:00:00 · 2 s ago", "no destination", "Timecode Box MIDI 1 is
/// not there"; empty while unknown.
std::string statusText(const DestinationStatus& status, DestinationStatus::Clock::time_point now);

} // namespace vexa
