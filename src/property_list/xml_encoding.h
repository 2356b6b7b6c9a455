#pragma once

#include "property_list/MemoryBudget.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace vexa {

/// The text of an XML file as UTF-8, without a byte-order mark. The encoding is what the
/// byte-order mark says, else what the XML declaration names, else UTF-8. Nothing if the encoding
/// is unknown, a byte is not valid in it, or the budget does not pay for the text. The answer
/// shares the bytes given where these are UTF-8 already, and must not outlive them.
std::optional<QByteArray> utf8FromXml(QByteArrayView file, MemoryBudget& budget);

} // namespace vexa
