#include "property_list/property_list_reader.h"

#include "property_list/property_list_binary_reader.h"
#include "property_list/property_list_xml_reader.h"

namespace vexa {

std::optional<PropertyList> readPropertyList(QByteArrayView bytes, MemoryBudget& budget) {
    return bytes.startsWith("bplist") ? readBinaryPropertyList(bytes, budget)
                                      : readXmlPropertyList(bytes, budget);
}

} // namespace vexa
