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

/// What there is to tell of a run at one moment. What is absent has no end, or is not known.
struct RunSituation {
    Phase phase = Phase::stopped;
    bool isBatch = false;
    StripeSettings settings{}; ///< of the single stripe that Play begins
    bool stopTimeSet = false;
    QString title{};     ///< of the item under way
    QString nextTitle{}; ///< of the item that comes next
    std::uint64_t number =
        0; ///< of that item in the run, from 1 on: the one under way, else the next
    std::uint64_t items = 0; ///< of the run, or of the one that Play begins
    std::uint64_t reels = 0; ///< how many different ones they are on
    std::uint64_t reel = 0;  ///< of the item with that number
    std::optional<RunLoop::Seconds> leftOfItem{};
    std::optional<RunLoop::Seconds> leftOfRun{}; ///< or of the one that Play begins
    std::optional<RunLoop::Seconds> leftOfPause{};
    bool asksForReels = false; ///< before the run's end
    QTime now{};               ///< local
};

/// What tells of a run from some steps away. Where it is laid out, the title of the item under way
/// stands behind the words.
struct RunLine {
    QString words = {}; ///< "playing"
    QString left = {};  ///< "4:10 left"
    QString place = {}; ///< "item 2 of 5 · reel 1"
    QString whole = {}; ///< "1:02:33 of the run, ends 14:32"
    /// All of it, with the title, as it is spoken: "playing Part one · item 2 of 5 · …".
    QString sentence = {};

    bool operator==(const RunLine&) const = default;
};

RunLine runLine(const RunSituation& situation);

} // namespace vexa
