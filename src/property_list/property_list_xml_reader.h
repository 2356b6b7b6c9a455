#pragma once

#include "property_list/MemoryBudget.h"
#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads the XML form, as property-list-1.0.dtd describes it and with the leniency usual for it:
/// declaration, document type and the plist element may be missing, attributes mean nothing, and
/// what follows the end of the property list is not looked at. There are no entities but the five
/// of XML; a document type with declarations of its own is refused. Of several equal keys the
/// last counts. Control characters and carriage returns in text are kept as they are.
std::optional<PropertyList> readXmlPropertyList(QByteArrayView bytes, MemoryBudget& budget);

} // namespace vexa
