#pragma once

#include "stripe/RunLoop.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace vexa {

/// What the operator may have to know; each text is empty where there is nothing to tell.
struct StatusSituation {
    QString entry{};     ///< why a time that is typed has not been taken
    QString rows{};      ///< what an edit has done to the run under way
    QString unwritten{}; ///< the file that could not be written
    bool useBatch = false;
    bool stopTimeSet = false;
    std::uint64_t items = 0;                ///< of the list
    std::uint64_t reels = 0;                ///< how many different ones they are on
    std::optional<RunLoop::Seconds> time{}; ///< of all items; nothing where one would never end
};

struct StatusLine {
    QString text{};
    bool isConcern = false; ///< something to be done about, or to be known

    bool operator==(const StatusLine&) const = default;
};

/// The most pressing of it; without any, what the list comes to.
StatusLine statusLine(const StatusSituation& situation);

} // namespace vexa
