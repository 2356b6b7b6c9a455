#pragma once

#include "generator/output_options.h"
#include "generator/unit.h"

#include <memory>

namespace vexa {

/// The generator on the JACK server that runs, with the ports "in", "LTC" and "MTC"; none where no
/// server runs. Does not start one.
std::unique_ptr<Unit> openJackUnit(const OutputOptions& options);

} // namespace vexa
