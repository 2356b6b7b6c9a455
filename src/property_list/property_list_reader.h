#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads a property list in XML or binary form; its first bytes tell which. Returns nothing if the
/// bytes have any fault. Takes time linear in bytes and values, and enforces
/// property_list_limits.h. Memory is charged to the budget; callers that derive more from the value
/// charge it to the rest.
///
/// Why our own reader: lists come from strangers. libplist 2.2 crashes on a million nested arrays
/// and hangs on a million keys. XML parsers refuse control characters that lists may contain, and
/// change carriage returns. The grammar is small, and one bounded scanner was also the fastest.
std::optional<PropertyList> readPropertyList(QByteArrayView bytes, MemoryBudget& budget);

inline std::optional<PropertyList> readPropertyList(QByteArrayView bytes) {
    MemoryBudget budget;
    return readPropertyList(bytes, budget);
}

} // namespace vexa
