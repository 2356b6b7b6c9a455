#pragma once

#include "timecode/StripeSettings.h"

namespace vexa {

/// The way to the generator. Nothing comes back: what cannot be sent is lost.
class GeneratorLink {
public:
    virtual ~GeneratorLink() = default;
    virtual void stop() = 0;
    /// Sets the generator up for these settings and starts it; it knows no stop time.
    virtual void run(const StripeSettings& settings) = 0;
};

} // namespace vexa
