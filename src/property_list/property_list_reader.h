#pragma once

#include "property_list/PropertyList.h"

#include <QByteArrayView>

#include <optional>

namespace vexa {

/// Reads a property list of either form, XML or binary, told apart by their first bytes. Whatever
/// is wrong with the bytes, the answer is no value. It takes time in proportion to the number of
/// bytes and values, and holds the bounds of property_list_limits.h whatever the bytes say.
std::optional<PropertyList> readPropertyList(QByteArrayView bytes);

} // namespace vexa
