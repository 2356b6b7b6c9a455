#include "batch/VexaBatchStripeData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <set>

using namespace vexa;

namespace {

/// A reference implementation of the list, for objects that it does not contain yet.
struct PlainList {
    BatchItems items;

    void add(const BatchItems& more) {
        items.insert(items.end(), more.begin(), more.end());
        std::ranges::stable_sort(items, comesBefore);
    }
    /// The object that a list with one more row has in addition; null if there is none.
    BatchItemRef newObjectIn(const BatchItems& list) const {
        const std::set<BatchItemRef> known(items.begin(), items.end());
        const auto found =
            std::ranges::find_if(list, [&](const auto& item) { return !known.contains(item); });
        return found == list.end() ? nullptr : *found;
    }
    void removeEqual(const BatchItem& fields) {
        std::erase_if(items, [&](const auto& other) { return *other == fields; });
    }
    BatchItems deleteRows(const RowIndexes& rows) {
        BatchItems deleted;
        for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
            deleted.push_back(items[*row]);
            items.erase(items.begin() + static_cast<std::ptrdiff_t>(*row));
        }
        return deleted;
    }
};

class RandomEdits : public testing::TestWithParam<std::uint32_t> {
protected:
    std::size_t upTo(std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(m_random);
    }
    /// Few different values, so that many items are equal.
    BatchItemRef someItem() {
        return std::make_shared<BatchItem>(
            BatchItem{upTo(2), someTitle(), upTo(1), upTo(1), upTo(3), upTo(2), upTo(1)});
    }
    QString someTitle() { return QString(QChar(u'a' + static_cast<char16_t>(upTo(2)))); }
    BatchItems someItems() {
        BatchItems items(upTo(8));
        std::ranges::generate(items, [this] { return someItem(); });
        return items;
    }
    RowIndexes someRows(std::size_t size) {
        RowIndexes rows;
        for (std::size_t row = 0; row < size; ++row)
            if (upTo(2) == 0)
                rows.insert(row);
        return rows;
    }

    std::mt19937 m_random{GetParam()};
};

TEST_P(RandomEdits, GiveTheSameObjectsInTheSameOrderAsPlainCode) {
    VexaBatchStripeData data(nullptr);
    PlainList plain;
    BatchItems deleted;
    for (int step = 0; step < 500; ++step) {
        const auto size = plain.items.size();
        switch (upTo(6)) {
        case 0:
        case 1: {
            const bool held = size && upTo(3) == 0;
            const auto item = held ? plain.items[upTo(size - 1)] : someItem();
            data.addItem(item);
            const auto added = held ? plain.newObjectIn(data.batchList()) : item;
            ASSERT_TRUE(added && *added == *item) << "step " << step;
            plain.add({added});
            break;
        }
        case 2: {
            const auto items = someItems();
            data.addItems(items);
            plain.add(items);
            break;
        }
        case 3: {
            const auto item = size ? plain.items[upTo(size - 1)] : someItem();
            data.removeItem(item);
            plain.removeEqual(*item);
            break;
        }
        case 4: {
            const auto rows = someRows(size);
            deleted = plain.deleteRows(rows);
            ASSERT_EQ(data.deleteIndexedItems(rows), deleted) << "step " << step;
            if (upTo(1)) {
                data.addItems(deleted);
                plain.add(deleted);
            }
            break;
        }
        case 5:
            if (size) {
                const auto title = someTitle();
                data.setObjectValue(title, item_key::title, upTo(size - 1));
            }
            break;
        default:
            if (upTo(9) == 0) {
                plain.items = someItems();
                data.replaceBatchList(plain.items);
            }
        }
        ASSERT_EQ(data.batchList(), plain.items) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, testing::Range(1u, 41u));

} // namespace
