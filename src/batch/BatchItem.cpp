#include "batch/BatchItem.h"

#include <tuple>

namespace vexa {

bool comesBefore(const BatchItemRef& a, const BatchItemRef& b) {
    const auto key = [](const BatchItem& item) {
        return std::tie(item.reel, item.start, item.title, item.stop, item.id);
    };
    return key(*a) < key(*b);
}

} // namespace vexa
