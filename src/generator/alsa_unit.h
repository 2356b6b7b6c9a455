#pragma once

#include "generator/unit.h"

#include <memory>

namespace vexa {

/// The generator on the ALSA sequencer; none where that does not open.
std::unique_ptr<Unit> openAlsaUnit();

} // namespace vexa
