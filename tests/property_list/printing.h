#pragma once

#include "property_list/property_list_xml_writer.h"

#include <ostream>

namespace vexa {

inline void PrintTo(const PropertyList& value, std::ostream* out) {
    *out << xmlPropertyList(value).constData();
}

} // namespace vexa
