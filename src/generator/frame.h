#pragma once

#include "timecode/timecode.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace vexa {

struct SysEx;

/// What a mode code stands for.
struct Mode {
    std::uint64_t sync = 0;            ///< sync-type code
    std::optional<std::uint64_t> rate; ///< frame-rate code; FSK carries none

    bool operator==(const Mode&) const = default;
};

/// "25 fps DTL", or "FSK, rate unknown".
std::string modeText(const Mode& mode);

/// Run from this time in this mode when the start comes.
struct SetupFrame {
    Timecode time; ///< valid at the mode's rate; at a rate of 30 where that is unknown
    Mode mode;

    bool operator==(const SetupFrame&) const = default;
};

/// Run now, from the time that was set up.
struct StartFrame {
    Timecode time;

    bool operator==(const StartFrame&) const = default;
};

/// Stop. The setup for 00:00:00:00 at 24 fps MTC has the same bytes.
struct StopFrame {
    bool operator==(const StopFrame&) const = default;
};

/// What keeps a message from being one of the device's.
enum class Fault { manufacturer, device, cutOff, size, modeCode, time };

/// None of the device's messages.
struct MalformedFrame {
    Fault fault;

    bool operator==(const MalformedFrame&) const = default;
};

using Frame = std::variant<SetupFrame, StartFrame, StopFrame, MalformedFrame>;

/// What a System Exclusive message says to the device, looked at by itself. Real-time safe.
Frame decodedFrame(const SysEx& message);

/// What is wrong with the message that has the fault, to be read by a person.
std::string faultText(Fault fault, const SysEx& message);

} // namespace vexa
