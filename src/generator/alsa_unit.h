#pragma once

#include "generator/output_options.h"
#include "generator/unit.h"

#include <memory>

namespace vexa {

/// The generator on the ALSA sequencer; null if that does not open. LTC goes to a JACK server, if
/// one runs. Acts on messages a tenth of a second after they arrive, so the delay is constant.
std::unique_ptr<Unit> openAlsaUnit(const OutputOptions& options);

} // namespace vexa
