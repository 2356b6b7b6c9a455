#pragma once

#include "timecode/timecode.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace vexa {

struct SysEx;

/// The meaning of a mode code.
struct Mode {
    std::uint64_t sync = 0;            ///< sync-type code
    std::optional<std::uint64_t> rate; ///< frame-rate code; FSK carries none

    bool operator==(const Mode&) const = default;
};

/// "25 fps DTL", or "FSK, rate unknown".
std::string modeText(const Mode& mode);

/// Sets up the time and mode for the next start.
struct SetupFrame {
    Timecode time; ///< valid at the mode's rate, or at 30 fps if that is unknown
    Mode mode;

    bool operator==(const SetupFrame&) const = default;
};

/// Starts a run from the time that was set up.
struct StartFrame {
    Timecode time;

    bool operator==(const StartFrame&) const = default;
};

/// Stops. The setup for 00:00:00:00 at 24 fps MTC has the same bytes.
struct StopFrame {
    bool operator==(const StopFrame&) const = default;
};

/// Why a message is not one of the device's.
enum class Fault { manufacturer, device, cutOff, size, modeCode, time };

/// Not one of the device's messages.
struct MalformedFrame {
    Fault fault;

    bool operator==(const MalformedFrame&) const = default;
};

using Frame = std::variant<SetupFrame, StartFrame, StopFrame, MalformedFrame>;

/// Decodes a single System Exclusive message, whatever came before it. Real-time safe.
Frame decodedFrame(const SysEx& message);

/// Describes the message's fault for people.
std::string faultText(Fault fault, const SysEx& message);

} // namespace vexa
