#pragma once

#include "batch/BatchItem.h"

#include <cstdint>

namespace vexa {

/// What a run is doing.
enum class Phase {
    stopped,
    running,
    paused,       ///< by the operator
    betweenItems, ///< of a batch run: the next one follows after the delay
    awaitingReel, ///< of a batch run: the next one follows when its reel is loaded
};

/// How far a run has come.
struct Progress {
    Phase phase = Phase::stopped;
    bool pastFirstItem = false;    ///< a batch run that has brought an item to its end
    std::uint64_t currentStop = 0; ///< where the stripe under way ends; packed timecode
    BatchItemRef item;             ///< under way; null between items and outside a batch run
    std::uint64_t reel = 0;        ///< the one that counts as loaded
    std::uint64_t itemsToStripe = 0;
};

/// The transport state code of a phase. From the end of its first item on, a batch run counts as
/// paused between items, also while a later one plays.
std::uint64_t transportStateOf(const Progress& progress);

} // namespace vexa
