#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads a property list of either form, XML or binary, told apart by its first bytes. Returns
/// nothing if anything is wrong with the bytes. The time is linear in bytes and values, and the
/// bounds of property_list_limits.h always hold. Memory is charged to the budget; callers that make
/// more of the value charge what is left of it.
///
/// Why our own: lists come from strangers. libplist 2.2 crashes at a million nested arrays and
/// hangs on a million keys. XML parsers refuse control characters that lists may hold, and change
/// carriage returns. The grammar is small, and one scanner that is bounded was also the fastest.
std::optional<PropertyList> readPropertyList(QByteArrayView bytes, MemoryBudget& budget);

inline std::optional<PropertyList> readPropertyList(QByteArrayView bytes) {
    MemoryBudget budget;
    return readPropertyList(bytes, budget);
}

} // namespace vexa
