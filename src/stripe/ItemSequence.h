#pragma once

#include "batch/VexaBatchStripeData.h"
#include "stripe/StripePlan.h"

#include <cstdint>
#include <utility>

namespace vexa {

/// The items of a batch run in order: all of the list, or its selection. The mode is read again at
/// each step, and both modes share the list's cursor.
class ItemSequence {
public:
    /// Both must outlive this.
    ItemSequence(VexaBatchStripeData& list, const StripePlan& plan) : m_list(list), m_plan(plan) {}

    std::uint64_t count() const;
    /// Null if there is none.
    BatchItemRef first();
    BatchItemRef next();
    /// Whether next() would return an item.
    bool hasMore() const;

    /// In the order of the run.
    const BatchItems& items() const;
    /// The position in items() of the last item returned. By now it may hold another item, or none.
    std::uint64_t row() const { return m_list.curItem(); }
    /// The item that next() would return; null if there is none.
    BatchItemRef upcoming() const;
    /// Takes a new value whenever items() changes.
    using Revision = std::pair<std::uint64_t, bool>;
    Revision revision() const { return {m_list.revision(), isAll()}; }

private:
    bool isAll() const { return m_plan.batchMode == batchModeAll; }

    VexaBatchStripeData& m_list;
    const StripePlan& m_plan;
};

} // namespace vexa
