#pragma once

#include "timecode/StripeSettings.h"

namespace vexa {

/// Controls the generator. Nothing comes back: a message that cannot be sent is lost.
class GeneratorLink {
public:
    virtual ~GeneratorLink() = default;
    virtual void stop() = 0;
    /// Sets up the generator with these settings and starts it. It knows no stop time.
    virtual void run(const StripeSettings& settings) = 0;
};

} // namespace vexa
