#pragma once

#include "property_list/PropertyList.h"

#include <QByteArray>

namespace vexa {

/// The XML form in UTF-8: one element per line, indented with tabs, line feeds only, dictionaries
/// in key order. Equal values give equal bytes. An unpaired surrogate becomes U+FFFD; dates lose
/// fractions of a second. A date that XML cannot express (NaN, or outside the years 0000 to 9999)
/// becomes a real: its seconds since 2001.
QByteArray xmlPropertyList(const PropertyList& value);

} // namespace vexa
