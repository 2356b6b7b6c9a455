#pragma once

#include "property_list/MemoryBudget.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace vexa {

/// The text of an XML file as UTF-8, without a byte-order mark. The encoding comes from the
/// byte-order mark, or else the XML declaration, or else is UTF-8. Returns nothing if the encoding
/// is unknown, a byte is invalid in it, or the budget is too small. A file in UTF-8 is not copied:
/// the result then shares its bytes and must not outlive them.
std::optional<QByteArray> utf8FromXml(QByteArrayView file, MemoryBudget& budget);

} // namespace vexa
