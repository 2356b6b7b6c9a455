#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads a property list of either form, XML or binary, told apart by their first bytes. Whatever
/// is wrong with the bytes, the answer is no value. It takes time in proportion to the number of
/// bytes and values, and holds the bounds of property_list_limits.h whatever the bytes say. What it
/// allocates is paid for out of the budget; who makes more of it goes on with what is left.
std::optional<PropertyList> readPropertyList(QByteArrayView bytes, MemoryBudget& budget);

inline std::optional<PropertyList> readPropertyList(QByteArrayView bytes) {
    MemoryBudget budget;
    return readPropertyList(bytes, budget);
}

} // namespace vexa
