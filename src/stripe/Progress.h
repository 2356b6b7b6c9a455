#pragma once

#include "batch/BatchItem.h"

#include <cstdint>

namespace vexa {

/// What a run is doing.
enum class Phase {
    stopped,
    running,
    paused,       ///< by the operator
    betweenItems, ///< of a batch run; the next one starts after the delay
    awaitingReel, ///< of a batch run; the next one starts when its reel is loaded
};

/// How far a run has got.
struct Progress {
    Phase phase = Phase::stopped;
    bool pastFirstItem = false;    ///< a batch run has finished an item
    std::uint64_t currentStop = 0; ///< end of the current stripe; packed timecode
    BatchItemRef item;             ///< current; null between items and outside a batch run
    std::uint64_t reel = 0;        ///< the reel assumed to be loaded
    std::uint64_t itemsToStripe = 0;
};

/// The transport state code of a phase. After its first item, a batch run counts as paused between
/// items even while a later item plays.
std::uint64_t transportStateOf(const Progress& progress);

} // namespace vexa
