#pragma once

#include "batch/BatchItem.h"
#include "property_list/PropertyList.h"

#include <QString>
#include <QStringView>

namespace vexa {

/// An item as list files hold it: a dictionary of exactly the seven item keys, the title a string,
/// the others integers from 0 on.
///
/// Any other element becomes an item as well, and turns back into what it was. Its fields are then
/// the best that can be made of it: a number may be written as a string, a title as a number, and
/// what is missing or means nothing is 0 or no title.
BatchItemRef itemFromElement(PropertyList element);

/// The inverse. A title that was changed since takes its place in the element; an element that is
/// no dictionary, and so has no place for one, is then replaced by the dictionary of the fields.
PropertyList elementFromItem(const BatchItem& item);

/// The value of a key in the item's element: a string as it is, a number in digits, else null.
QString storedText(const BatchItem& item, QStringView key);

} // namespace vexa
