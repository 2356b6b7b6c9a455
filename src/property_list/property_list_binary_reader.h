#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads the binary form, "bplist0" and any digit. Of several equal keys the first counts. Null,
/// sets and UIDs have no place in a property list of this program and are refused like damage.
std::optional<PropertyList> readBinaryPropertyList(QByteArrayView bytes, MemoryBudget& budget);

} // namespace vexa
