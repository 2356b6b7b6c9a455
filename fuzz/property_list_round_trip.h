#pragma once

#include "property_list/property_list_reader.h"
#include "property_list/property_list_xml_writer.h"

#include <cstdlib>

namespace vexa {

/// Reads a file and, if it is a property list, writes and reads it again. The first writing may
/// lose what XML has no place for, fractions of a second for one; nothing may change after that.
inline void checkRoundTrip(QByteArrayView file) {
    const auto value = readPropertyList(file);
    if (!value)
        return;
    const auto written = xmlPropertyList(*value);
    const auto again = readPropertyList(written);
    const bool binary = file.startsWith("bplist");
    if (!again || xmlPropertyList(*again) != written || (!binary && again != value))
        std::abort();
}

} // namespace vexa
