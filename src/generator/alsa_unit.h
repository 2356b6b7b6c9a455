#pragma once

#include "generator/output_options.h"
#include "generator/unit.h"

#include <memory>

namespace vexa {

/// The generator on the ALSA sequencer; none where that does not open. LTC comes out of a JACK
/// server, if one runs. Messages are acted on a tenth of a second after they arrive, so that the
/// delay is always the same.
std::unique_ptr<Unit> openAlsaUnit(const OutputOptions& options);

} // namespace vexa
