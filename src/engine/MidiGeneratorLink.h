#pragma once

#include "stripe/GeneratorLink.h"

namespace vexa {

/// Controls the generator over MIDI. Uses the shared manager, which exists from the first use on.
class MidiGeneratorLink final : public GeneratorLink {
public:
    void stop() override;
    void run(const StripeSettings& settings) override;
};

} // namespace vexa
