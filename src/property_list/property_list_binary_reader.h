#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads the binary form, "bplist0" and any digit. Of several equal keys the first counts. A UID is
/// read as XML has it, a dictionary of the key "CF$UID" and a number. Null and sets have no place
/// in XML and are refused like damage.
std::optional<PropertyList> readBinaryPropertyList(QByteArrayView bytes, MemoryBudget& budget);

} // namespace vexa
