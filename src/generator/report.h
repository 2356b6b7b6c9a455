#pragma once

#include "generator/generator_state.h"
#include "generator/moment.h"
#include "generator/sysex_reader.h"

#include <optional>
#include <string>

namespace vexa {

/// A message and what became of it.
struct Report {
    Moment arrival;
    SysEx message;
    Reply reply = Reply::malformed;
    GeneratorState state;              ///< after the message
    std::optional<Timecode> stoppedAt; ///< the number under way where the message ended a run
    unsigned xruns = 0;                ///< of that run
};

/// The message and what it meant, for the log: "F0 7D 42 01 00 00 00 7F F7  start 01:00:00:00".
std::string reportText(const Report& report);

/// What the signal has come to in a run.
struct SignalStatus {
    Timecode time;                  ///< the number under way
    std::optional<double> ltcLevel; ///< in dBFS; none where there is no sound
    unsigned xruns = 0;             ///< of this run
};

/// What the generator is doing, in one line.
std::string statusText(const GeneratorState& state, const SignalStatus& signal);

} // namespace vexa
