#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads the XML form described by property-list-1.0.dtd, with the usual leniency. Declaration,
/// document type and plist element are optional; attributes, and text after the property list, are
/// ignored. Only XML's five entities exist, and a document type with declarations is refused. The
/// last of several equal keys wins. Text keeps control characters and carriage returns.
std::optional<PropertyList> readXmlPropertyList(QByteArrayView bytes, MemoryBudget& budget);

} // namespace vexa
