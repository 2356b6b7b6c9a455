#pragma once

#include "generator/output_options.h"
#include "generator/unit.h"

#include <memory>

namespace vexa {

/// The generator on the running JACK server, with the ports "in", "LTC" and "MTC"; null if no
/// server runs. Does not start one.
std::unique_ptr<Unit> openJackUnit(const OutputOptions& options);

} // namespace vexa
