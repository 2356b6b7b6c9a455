#pragma once

#include "property_list/PropertyList.h"

#include <QByteArray>

namespace vexa {

/// The XML form, in UTF-8: one element a line, indented by tabs, line feeds only, dictionaries in
/// the order of their keys. A value gives the same bytes always. Half a surrogate pair in a string
/// becomes U+FFFD; dates lose fractions of a second. A date that none of XML's can stand for, NaN
/// or out of the years 0000 to 9999, is written as a real: its seconds since 2001.
QByteArray xmlPropertyList(const PropertyList& value);

} // namespace vexa
