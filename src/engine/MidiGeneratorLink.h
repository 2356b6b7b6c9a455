#pragma once

#include "stripe/GeneratorLink.h"

namespace vexa {

/// The way to the generator over MIDI, by the shared manager, which it makes on first use.
class MidiGeneratorLink final : public GeneratorLink {
public:
    void stop() override;
    void run(const StripeSettings& settings) override;
};

} // namespace vexa
