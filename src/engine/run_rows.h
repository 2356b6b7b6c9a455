#pragma once

#include "batch/BatchItem.h"

#include <cstddef>
#include <set>

namespace vexa {

/// How edits and clicks since Play have changed which rows a batch run plays.
struct RunRows {
    bool beganWithSelection = false;
    bool takesSelection = false;
    BatchItemRef removedUnderWay{}; ///< the item playing, if the list no longer holds it
    BatchItems repeated{};          ///< items to come that were already striped, or are playing
    BatchItems skipped{};           ///< items neither striped nor to come
    BatchItems removed{};           ///< items to come that the list no longer holds
};

/// The most surprising change, in words; empty if nothing has changed.
QString runRowsText(const RunRows& rows);

/// The rows of a current run: its items in order, its position, and what it has striped.
struct RunCourse {
    const BatchItems& list;
    const BatchItems& items; ///< those of the list or of the selection
    std::size_t next;        ///< index of the next item
    BatchItemRef underWay{};
    const std::set<BatchItemRef>& finished;
};

RunRows runRows(const RunCourse& course);

} // namespace vexa
