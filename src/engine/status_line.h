#pragma once

#include "document/ListDocument.h"
#include "stripe/RunLoop.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace vexa {

/// What the operator may need to know; a text is empty if there is nothing to say.
struct StatusSituation {
    QString entry{}; ///< why the typed time has not been committed
    QString rows{};  ///< how an edit has changed the current run
    FileTrouble fileTrouble = FileTrouble::none;
    QString file{}; ///< the name of the list's file
    bool useBatch = false;
    bool stopTimeSet = false;
    std::uint64_t items = 0;                ///< in the list
    std::uint64_t reels = 0;                ///< number of different reels those items are on
    std::optional<RunLoop::Seconds> time{}; ///< of all items; empty if one never ends
};

struct StatusLine {
    QString text{};
    bool isConcern = false; ///< something to act on, or to know about

    bool operator==(const StatusLine&) const = default;
};

/// The most urgent concern; if there is none, the totals of the list.
StatusLine statusLine(const StatusSituation& situation);

} // namespace vexa
