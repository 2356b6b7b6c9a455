#pragma once

#include "stripe/RunLoop.h"
#include "timecode/StripeSettings.h"

#include <algorithm>
#include <cstdint>

namespace vexa {

/// Which items a batch run stripes. Also the tags of the radio cells.
inline constexpr std::uint64_t batchModeAll = 0;
inline constexpr std::uint64_t batchModeSelected = 1;

/// What the operator has asked for. A run reads it at every step, so changes during a run take
/// effect at the next step.
struct StripePlan {
    StripeSettings settings;  ///< a batch run puts the rate and sync type of its items here
    StripeSettings saved;     ///< the settings before the last batch run; zeros before the first
    bool stopTimeSet = false; ///< whether a single stripe ends at the stop time
    bool useBatch = false;
    std::uint64_t batchMode = batchModeAll;
    double delayInSeconds = 0; ///< from the end of an item to the start of the next
    bool pauseForReelChange = false;

    /// The delay for a timer; 0 if it is negative.
    RunLoop::Seconds pauseBetweenItems() const {
        return RunLoop::Seconds(std::max(0.0, delayInSeconds));
    }
};

} // namespace vexa
