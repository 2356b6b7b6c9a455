#pragma once

#include "property_list/property_list_reader.h"
#include "property_list/property_list_xml_writer.h"

#include <cstdlib>

namespace vexa {

/// Reads a file; if it is a property list, writes and reads it again. The first write may lose what
/// XML cannot express, such as fractions of a second. After that, nothing may change.
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
