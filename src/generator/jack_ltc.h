#pragma once

#include "generator/output_options.h"
#include "generator/unit.h"
#include "ltc/ltc_signal.h"

#include <memory>

namespace vexa {

/// LTC output for a unit that runs on our clock and does not receive its messages from JACK.
class LtcOutput {
public:
    LtcOutput() = default;
    virtual ~LtcOutput() = default;
    LtcOutput(const LtcOutput&) = delete;
    LtcOutput& operator=(const LtcOutput&) = delete;

    /// Starts or finishes a run at a future moment, or at once if the moment has passed. Calls come
    /// in the order of their moments.
    virtual void start(const LtcRun& run, Moment moment) = 0;
    virtual void finish(Moment moment) = 0;

    virtual SignalStatus signal() = 0;

    /// Becomes readable when read() has work to do.
    virtual int descriptor() const = 0;

    /// Reports what has happened. Returns false when the output is gone for good.
    virtual bool read(Listener& listener) = 0;
};

/// LTC on the port "LTC" of the running JACK server; null if no server runs. Does not start one.
std::unique_ptr<LtcOutput> openJackLtc(const OutputOptions& options);

} // namespace vexa
