#pragma once

#include <string>
#include <vector>

namespace vexa {

/// The user's settings for the signals.
struct OutputOptions {
    static constexpr double lowestLevel = -60;

    double level = -18;                   ///< of LTC, in dBFS: lowestLevel to 0
    std::vector<std::string> connections; ///< JACK ports: audio ports for LTC, MIDI ports for MTC
};

} // namespace vexa
