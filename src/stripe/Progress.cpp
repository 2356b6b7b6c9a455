#include "stripe/Progress.h"

#include "stripe/transport_state.h"

namespace vexa {

std::uint64_t transportStateOf(const Progress& progress) {
    switch (progress.phase) {
    case Phase::stopped:
        return transport::stopped;
    case Phase::paused:
        return transport::paused;
    case Phase::running:
    case Phase::betweenItems:
    case Phase::awaitingReel:
        break;
    }
    return progress.pastFirstItem ? transport::pausedBetweenItems : transport::playing;
}

} // namespace vexa
