#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads the binary form: "bplist0" and any digit. The first of several equal keys wins. A UID
/// becomes a dictionary of the key "CF$UID" and a number, as in XML. Null and sets do not exist in
/// XML and are refused like damage.
std::optional<PropertyList> readBinaryPropertyList(QByteArrayView bytes, MemoryBudget& budget);

} // namespace vexa
