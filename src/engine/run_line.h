#pragma once

#include "stripe/Progress.h"
#include "stripe/RunLoop.h"
#include "timecode/StripeSettings.h"

#include <QString>
#include <QTime>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vexa {

/// The state of a run at one moment. An empty time is endless or unknown.
struct RunSituation {
    Phase phase = Phase::stopped;
    bool isBatch = false;
    StripeSettings settings{}; ///< of the single stripe that Play starts
    bool stopTimeSet = false;
    QString title{};          ///< of the current item
    QString nextTitle{};      ///< of the next item
    std::uint64_t number = 0; ///< of the current item, or else the next, counted from 1
    std::uint64_t items = 0;  ///< of the run, or of the one that Play starts
    std::uint64_t reels = 0;  ///< number of different reels those items are on
    std::uint64_t reel = 0;   ///< of the item with that number
    std::optional<RunLoop::Seconds> leftOfItem{};
    std::optional<RunLoop::Seconds> leftOfRun{}; ///< or of the run that Play starts
    std::optional<RunLoop::Seconds> leftOfPause{};
    bool asksForReels = false; ///< before the run ends
    QTime now{};               ///< local time
};

/// The texts about a run, for a display that is read from a distance. It shows the current item's
/// title after the words.
struct RunLine {
    QString words = {}; ///< "playing"
    QString left = {};  ///< "4:10 left"
    QString place = {}; ///< "item 2 of 5 · reel 1"
    QString whole = {}; ///< "1:02:33 of the run, ends 14:32"
    /// All of it with the title, as spoken: "playing Part one · item 2 of 5 · …".
    QString sentence = {};

    bool operator==(const RunLine&) const = default;
};

RunLine runLine(const RunSituation& situation);

} // namespace vexa
