#pragma once

#include "generator/output_options.h"
#include "generator/unit.h"
#include "ltc/ltc_signal.h"

#include <memory>

namespace vexa {

/// LTC for a unit whose messages come another way, and whose clock is ours.
class LtcOutput {
public:
    LtcOutput() = default;
    virtual ~LtcOutput() = default;
    LtcOutput(const LtcOutput&) = delete;
    LtcOutput& operator=(const LtcOutput&) = delete;

    /// Starts a run, or finishes it, at a moment that is to come; where it has passed, at once.
    /// The calls come in the order of their moments.
    virtual void start(const LtcRun& run, Moment moment) = 0;
    virtual void finish(Moment moment) = 0;

    virtual SignalStatus signal() = 0;

    /// Polls readable when read() has something to do.
    virtual int descriptor() const = 0;

    /// Tells what has happened. False when the sound has gone away for good.
    virtual bool read(Listener& listener) = 0;
};

/// LTC on the port "LTC" of the JACK server that runs; none where no server runs. Does not start
/// one.
std::unique_ptr<LtcOutput> openJackLtc(const OutputOptions& options);

} // namespace vexa
