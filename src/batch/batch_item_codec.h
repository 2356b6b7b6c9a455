#pragma once

#include "batch/BatchItem.h"
#include "property_list/PropertyList.h"

#include <QString>
#include <QStringView>

namespace vexa {

/// An item in a list file is a dictionary of exactly the seven item keys: a string for the title,
/// non-negative integers for the others.
///
/// Any other element becomes an item too, and is written back unchanged. Its fields are a best
/// guess: numbers may come from strings and titles from numbers. Missing or meaningless values
/// become 0 or no title.
BatchItemRef itemFromElement(PropertyList element);

/// The inverse. A title changed since then replaces the one in the element. An element that is no
/// dictionary cannot hold a title, so a dictionary of the fields replaces it.
PropertyList elementFromItem(const BatchItem& item);

/// The value of a key in the item's element: a string, or a number in digits; otherwise null.
QString storedText(const BatchItem& item, QStringView key);

} // namespace vexa
