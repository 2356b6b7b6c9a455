#include "batch/VexaBatchStripeData.h"

#include "batch/batch_item_codec.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace vexa {

namespace {

VexaBatchStripeData* shared = nullptr;

BatchItemRef itemAt(const BatchItems& items, std::uint64_t row) {
    return row < items.size() ? items[row] : nullptr;
}

std::uint64_t number(const BatchItemRef& item, std::uint64_t BatchItem::* field) {
    return item ? (*item).*field : 0;
}

} // namespace

VexaBatchStripeData* VexaBatchStripeData::sharedBatchData() { return shared; }

VexaBatchStripeData::VexaBatchStripeData(Vexa_RemoteAppDelegate* owner) : m_owner(owner) {
    shared = this;
}

VexaBatchStripeData::~VexaBatchStripeData() {
    if (shared == this)
        shared = nullptr;
}

BatchItemRef VexaBatchStripeData::addItemWithReel(std::uint64_t reel, const QString& title,
                                                  const StripeSettings& settings) {
    const auto& [start, stop, rate, type] = settings;
    auto item =
        std::make_shared<BatchItem>(BatchItem{reel, title, start, stop, rate, type, nextItemID()});
    addItem(item);
    return item;
}

void VexaBatchStripeData::addItem(const BatchItemRef& item) {
    sortUnlessInOrder();
    m_batchList.insert(std::ranges::upper_bound(m_batchList, item, comesBefore), ownRowFor(item));
    ++m_revision;
}

void VexaBatchStripeData::addItems(BatchItems items) {
    sortUnlessInOrder();
    std::ranges::transform(items, items.begin(), [this](auto& item) { return ownRowFor(item); });
    std::ranges::stable_sort(items, comesBefore);
    const auto oldSize = std::ssize(m_batchList);
    std::ranges::move(items, std::back_inserter(m_batchList));
    std::ranges::inplace_merge(m_batchList, m_batchList.begin() + oldSize, comesBefore);
    ++m_revision;
}

/// The item itself, or a copy if the list contains it. The list must be in order.
BatchItemRef VexaBatchStripeData::ownRowFor(const BatchItemRef& item) const {
    const auto equivalent = std::ranges::equal_range(m_batchList, item, comesBefore);
    const bool isHeld = std::ranges::find(equivalent, item) != equivalent.end();
    return isHeld ? std::make_shared<BatchItem>(*item) : item;
}

void VexaBatchStripeData::removeItem(const BatchItemRef& item) {
    // Compares with a copy, as the reference may be to a row that is removed.
    std::erase_if(m_batchList, [fields = *item](const auto& other) { return *other == fields; });
    ++m_revision;
}

BatchItems VexaBatchStripeData::deleteIndexedItems(const RowIndexes& rows) {
    BatchItems deleted;
    deleted.reserve(rows.size());
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        if (*row < m_batchList.size())
            deleted.push_back(std::move(m_batchList[*row]));
    std::erase(m_batchList, nullptr);
    ++m_revision;
    return deleted;
}

void VexaBatchStripeData::replaceBatchList(BatchItems items) {
    m_batchList = std::move(items);
    ++m_revision;
    m_knownInOrder = false;
}

void VexaBatchStripeData::sortUnlessInOrder() {
    if (!m_knownInOrder && !std::ranges::is_sorted(m_batchList, comesBefore))
        std::ranges::stable_sort(m_batchList, comesBefore);
    m_knownInOrder = true;
}

BatchItems VexaBatchStripeData::itemsOfRows(const RowIndexes& rows) const {
    BatchItems items;
    for (const auto row : rows)
        if (row < m_batchList.size())
            items.push_back(m_batchList[row]);
    return items;
}

RowIndexes VexaBatchStripeData::rowsOfItems(const BatchItems& items) const {
    std::unordered_set<const BatchItem*> wanted;
    wanted.reserve(items.size());
    for (const auto& item : items)
        wanted.insert(item.get());
    RowIndexes rows;
    for (std::size_t row = 0; row < m_batchList.size(); ++row)
        if (wanted.contains(m_batchList[row].get()))
            rows.insert(rows.end(), row);
    return rows;
}

BatchItemRef VexaBatchStripeData::firstItem() {
    m_curItem = 0;
    return itemAt(m_batchList, m_curItem);
}

BatchItemRef VexaBatchStripeData::nextItem() { return itemAt(m_batchList, ++m_curItem); }

BatchItemRef VexaBatchStripeData::firstSelectedItem() {
    m_curItem = 0;
    return itemAt(m_selectedItems, m_curItem);
}

BatchItemRef VexaBatchStripeData::nextSelectedItem() {
    return itemAt(m_selectedItems, ++m_curItem);
}

std::uint64_t VexaBatchStripeData::reelOfItem(const BatchItemRef& item) {
    return number(item, &BatchItem::reel);
}

QString VexaBatchStripeData::titleOfItem(const BatchItemRef& item) {
    return item ? item->title : QString();
}

std::uint64_t VexaBatchStripeData::startOfItem(const BatchItemRef& item) {
    return number(item, &BatchItem::start);
}

std::uint64_t VexaBatchStripeData::stopOfItem(const BatchItemRef& item) {
    return number(item, &BatchItem::stop);
}

std::uint64_t VexaBatchStripeData::rateOfItem(const BatchItemRef& item) {
    return number(item, &BatchItem::rate);
}

std::uint64_t VexaBatchStripeData::typeOfItem(const BatchItemRef& item) {
    return number(item, &BatchItem::type);
}

std::uint64_t VexaBatchStripeData::idOfItem(const BatchItemRef& item) {
    return number(item, &BatchItem::id);
}

QString VexaBatchStripeData::objectValueForTableColumn(QStringView column, std::size_t row) const {
    const BatchItem& item = *m_batchList[row];
    if (column == item_key::start)
        return timecodeStringFromBCDNumber(item.start);
    if (column == item_key::stop)
        return timecodeStringFromBCDNumber(item.stop);
    if (column == item_key::rate)
        return QString::fromLatin1(frameRateForCode(item.rate).name);
    if (column == item_key::type)
        return QString::fromLatin1(syncTypeName(item.type));
    return storedText(item, column);
}

void VexaBatchStripeData::setObjectValue(const QString& value, QStringView column,
                                         std::size_t row) {
    if (!shouldEditTableColumn(column))
        return;
    m_batchList[row]->title = value;
    m_knownInOrder = false;
}

QString VexaBatchStripeData::timecodeStringFromBCDNumber(std::uint64_t number) {
    return QString::fromLatin1(timecodeText(number));
}

} // namespace vexa
