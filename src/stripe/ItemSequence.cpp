#include "stripe/ItemSequence.h"

namespace vexa {

std::uint64_t ItemSequence::count() const {
    return isAll() ? m_list.numItems() : m_list.numSelectedItems();
}

BatchItemRef ItemSequence::first() {
    return isAll() ? m_list.firstItem() : m_list.firstSelectedItem();
}

BatchItemRef ItemSequence::next() {
    return isAll() ? m_list.nextItem() : m_list.nextSelectedItem();
}

bool ItemSequence::hasMore() const {
    return isAll() ? m_list.areMoreItemsAvailable() : m_list.areMoreSelectedItemsAvailable();
}

const BatchItems& ItemSequence::items() const {
    return isAll() ? m_list.batchList() : m_list.selectedItems();
}

BatchItemRef ItemSequence::upcoming() const { return hasMore() ? items()[row() + 1] : nullptr; }

} // namespace vexa
