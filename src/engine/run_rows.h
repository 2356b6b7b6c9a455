#pragma once

#include "batch/BatchItem.h"

#include <cstddef>
#include <set>

namespace vexa {

/// What has become of the rows that a batch run under way takes, by edits or clicks since Play.
struct RunRows {
    bool beganWithSelection = false;
    bool takesSelection = false;
    BatchItemRef removedUnderWay{}; ///< the item that plays, where the list no longer holds it
    BatchItems repeated{};          ///< those to come that have been striped, or are
    BatchItems skipped{};           ///< those neither striped nor to come
    BatchItems removed{};           ///< those to come that the list no longer holds
};

/// In words, the most surprising of it; empty where the run goes on as it was begun.
QString runRowsText(const RunRows& rows);

/// The rows of a run under way: its items in order, where it is, and what it has striped.
struct RunCourse {
    const BatchItems& list;
    const BatchItems& items; ///< the list's or the selection's
    std::size_t next;        ///< the place in items of the one that comes next
    BatchItemRef underWay{};
    const std::set<BatchItemRef>& finished;
};

RunRows runRows(const RunCourse& course);

} // namespace vexa
