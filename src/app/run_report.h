#pragma once

#include "midi/DestinationStatus.h"
#include "stripe/RunTimes.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>

namespace vexa {

/// The state of a run, for a line of text. The item of a batch run is the current one or, if none
/// is playing, the next.
struct RunReport {
    Phase phase = Phase::stopped;
    StripeSettings settings; ///< of the stripe or item
    bool hasStop = false;    ///< whether it stops at its stop time
    std::uint64_t time = 0;  ///< packed timecode

    struct Item {
        std::uint64_t number = 0; ///< from 1
        std::uint64_t count = 0;
        std::uint64_t reel = 0;
        QString title{};
    };
    std::optional<Item> item{}; ///< of a batch run

    std::optional<RunLoop::Seconds> itemLeft{};
    std::optional<RunLoop::Seconds> pauseLeft{};
    RunLeft runLeft{};
};

RunReport reportOf(const StripeRun& run, RunTimes& times);

/// "01:02:03:04  4:10 left, 1:02:33 of the run + reel changes  item 2 of 5: Part two  01:00:00:00
/// to 01:10:00:00, 25 fps, MTC". The changing values come first.
std::string progressText(const RunReport& report);

/// The same and more, as a JSON object on one line. Unknown values have no key.
QByteArray progressJson(const RunReport& report, const DestinationStatus& destination);

} // namespace vexa
