#pragma once

#include "generator/generator_state.h"
#include "generator/moment.h"
#include "generator/sysex_reader.h"

#include <optional>
#include <string>

namespace vexa {

/// A message and its outcome.
struct Report {
    Moment arrival;
    SysEx message;
    Reply reply = Reply::malformed;
    GeneratorState state;              ///< after the message
    std::optional<Timecode> stoppedAt; ///< where the message ended a run
    unsigned xruns = 0;                ///< of that run
};

/// The message and its meaning, for the log: "F0 7D 42 01 00 00 00 7F F7  start 01:00:00:00".
std::string reportText(const Report& report);

/// The state of the signals during a run.
struct SignalStatus {
    Timecode time;                  ///< the current timecode
    std::optional<double> ltcLevel; ///< in dBFS; none without audio
    unsigned xruns = 0;             ///< of this run
};

/// The generator's status, in one line.
std::string statusText(const GeneratorState& state, const SignalStatus& signal);

} // namespace vexa
