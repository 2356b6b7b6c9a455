#include "batch/BatchItem.h"

#include "property_list/PropertyList.h"

#include <tuple>

namespace vexa {

bool BatchItem::operator==(const BatchItem& other) const {
    const auto fields = [](const BatchItem& item) {
        return std::tie(item.reel, item.title, item.start, item.stop, item.rate, item.type,
                        item.id);
    };
    return fields(*this) == fields(other) &&
           (original == other.original ||
            (original && other.original && *original == *other.original));
}

bool comesBefore(const BatchItemRef& a, const BatchItemRef& b) {
    const auto key = [](const BatchItem& item) {
        return std::tie(item.reel, item.start, item.title, item.stop, item.id);
    };
    return key(*a) < key(*b);
}

} // namespace vexa
