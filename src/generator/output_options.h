#pragma once

#include <string>
#include <vector>

namespace vexa {

/// What the user wants of the signals.
struct OutputOptions {
    static constexpr double lowestLevel = -60;

    double level = -18;                   ///< of LTC, in dBFS: lowestLevel to 0
    std::vector<std::string> connections; ///< JACK ports, sound to LTC and MIDI to MTC
};

} // namespace vexa
