#include "batch/VexaBatchStripeData.h"
#include "batch/batch_item_codec.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <ostream>
#include <utility>
#include <vector>

using namespace vexa;
using namespace Qt::StringLiterals;
using Dictionary = PropertyList::Dictionary;
using Entries = std::vector<PropertyList::Entry>;

namespace vexa {
void PrintTo(const BatchItem& item, std::ostream* out) {
    *out << item.reel << " \"" << item.title.toStdString() << "\" " << item.start << ' '
         << item.stop << ' ' << item.rate << ' ' << item.type << ' ' << item.id
         << (item.original ? ", original kept" : "");
}
} // namespace vexa

namespace {

PropertyList dictionary(Entries entries) {
    return PropertyList(Dictionary(std::move(entries), PropertyList::Duplicates::keepLast));
}

PropertyList number(std::uint64_t value) { return PropertyList(value); }
PropertyList string(const QString& value) { return PropertyList(value); }

Entries ordinary() {
    return {{u"vexareel"_s, number(1)},  {u"vexatitle"_s, string(u"t"_s)},
            {u"vexastart"_s, number(2)}, {u"vexastop"_s, number(3)},
            {u"vexarate"_s, number(40)}, {u"vexatype"_s, number(5)},
            {u"vexaid"_s, number(6)}};
}

PropertyList with(const QString& key, PropertyList value) {
    PropertyList element = dictionary(ordinary());
    element.as<Dictionary>()->set(key, std::move(value));
    return element;
}

PropertyList without(const PropertyListKey& key) {
    Entries entries = ordinary();
    std::erase_if(entries, [&](const auto& entry) { return entry.key == key; });
    return dictionary(std::move(entries));
}

/// The cells of the item's row, joined.
QString row(const BatchItemRef& item) {
    VexaBatchStripeData data(nullptr);
    data.addItem(item);
    QStringList cells;
    for (const auto& column : {item_key::reel, item_key::title, item_key::start, item_key::stop,
                               item_key::rate, item_key::type})
        cells << data.objectValueForTableColumn(column, 0);
    return cells.join(u'|');
}

TEST(BatchItemCodec, ReadsAndWritesTheSevenKeys) {
    const BatchItem fields{1, u"t"_s, 2, 3, 40, 5, 6};
    EXPECT_EQ(elementFromItem(fields), dictionary(ordinary()));
    EXPECT_EQ(*itemFromElement(dictionary(ordinary())), fields);
}

TEST(BatchItemCodec, ReadsTheWholeRangeOfNumbers) {
    constexpr auto most = std::numeric_limits<std::uint64_t>::max();
    const BatchItem fields{most, {}, most, most, most, most, most};
    EXPECT_EQ(*itemFromElement(elementFromItem(fields)), fields);
}

struct OddElement {
    const char* what;
    PropertyList element;
    BatchItem fields;
    QString row;
};

void PrintTo(const OddElement& odd, std::ostream* out) { *out << odd.what; }

class OddBatchItem : public testing::TestWithParam<OddElement> {};

TEST_P(OddBatchItem, HasTheFieldsThatCanBeMadeOut) {
    BatchItem fields = *itemFromElement(GetParam().element);
    fields.original.reset();
    EXPECT_EQ(fields, GetParam().fields);
}

TEST_P(OddBatchItem, IsShownAsItIsStored) {
    EXPECT_EQ(row(itemFromElement(GetParam().element)).toStdString(), GetParam().row.toStdString());
}

TEST_P(OddBatchItem, IsWrittenBackUnchanged) {
    EXPECT_EQ(elementFromItem(*itemFromElement(GetParam().element)), GetParam().element);
}

TEST_P(OddBatchItem, EqualsOnlyItemsOfEqualElements) {
    const auto item = itemFromElement(GetParam().element);
    EXPECT_EQ(*item, *itemFromElement(GetParam().element));
    EXPECT_NE(*item, GetParam().fields);
}

TEST_P(OddBatchItem, TakesATitleThatIsEdited) {
    const auto item = itemFromElement(GetParam().element);
    item->title = u"edited"_s;
    EXPECT_EQ(storedText(*item, item_key::title), u"edited"_s);
    const auto again = itemFromElement(elementFromItem(*item));
    EXPECT_EQ(again->title, u"edited"_s);
    EXPECT_EQ(elementFromItem(*again), elementFromItem(*item));
}

const QString rest = u"|00:00:00:02|00:00:00:03|30 fps|MTC"_s;
const QString nothing = u"||00:00:00:00|00:00:00:00|24 fps|MTC"_s;

INSTANTIATE_TEST_SUITE_P(
    Kinds, OddBatchItem,
    testing::Values(
        OddElement{"no keys", dictionary({}), {}, nothing},
        OddElement{"no reel", without(item_key::reel), {0, u"t"_s, 2, 3, 40, 5, 6}, u"|t"_s + rest},
        OddElement{"no title", without(item_key::title), {1, {}, 2, 3, 40, 5, 6}, u"1|"_s + rest},
        OddElement{"no id", without(item_key::id), {1, u"t"_s, 2, 3, 40, 5, 0}, u"1|t"_s + rest},
        OddElement{"a key too many",
                   with(u"note"_s, string(u"keep"_s)),
                   {1, u"t"_s, 2, 3, 40, 5, 6},
                   u"1|t"_s + rest},
        OddElement{"digits for a reel",
                   with(item_key::reel, string(u"12"_s)),
                   {12, u"t"_s, 2, 3, 40, 5, 6},
                   u"12|t"_s + rest},
        OddElement{"words for a reel",
                   with(item_key::reel, string(u"12 b"_s)),
                   {0, u"t"_s, 2, 3, 40, 5, 6},
                   u"12 b|t"_s + rest},
        OddElement{"a negative reel",
                   with(item_key::reel, PropertyList(-2)),
                   {0xFFFFFFFFFFFFFFFE, u"t"_s, 2, 3, 40, 5, 6},
                   u"-2|t"_s + rest},
        OddElement{"a real reel",
                   with(item_key::reel, PropertyList(2.5)),
                   {2, u"t"_s, 2, 3, 40, 5, 6},
                   u"2.5|t"_s + rest},
        OddElement{"a reel without bounds",
                   with(item_key::reel, PropertyList(std::numeric_limits<double>::infinity())),
                   {0, u"t"_s, 2, 3, 40, 5, 6},
                   u"inf|t"_s + rest},
        OddElement{"a boolean reel",
                   with(item_key::reel, PropertyList(true)),
                   {0, u"t"_s, 2, 3, 40, 5, 6},
                   u"|t"_s + rest},
        OddElement{"a number for a title",
                   with(item_key::title, number(7)),
                   {1, u"7"_s, 2, 3, 40, 5, 6},
                   u"1|7"_s + rest},
        OddElement{"an array for a title",
                   with(item_key::title, PropertyList(PropertyList::Array())),
                   {1, {}, 2, 3, 40, 5, 6},
                   u"1|"_s + rest},
        OddElement{"no dictionary but text", string(u"Reel 5"_s), {}, nothing},
        OddElement{"no dictionary but a number", number(5), {}, nothing},
        OddElement{"no dictionary but an array",
                   PropertyList(PropertyList::Array{number(1)}),
                   {},
                   nothing}));

TEST(OddBatchItem, KeepsWhatItsTitleEditDoesNotConcern) {
    const auto item = itemFromElement(with(u"note"_s, string(u"keep"_s)));
    item->title = u"edited"_s;
    PropertyList expected = with(u"note"_s, string(u"keep"_s));
    expected.as<Dictionary>()->set(item_key::title, string(u"edited"_s));
    EXPECT_EQ(elementFromItem(*item), expected);
}

TEST(OddBatchItem, BecomesAnOrdinaryOneWhenThereWasNoDictionaryForItsNewTitle) {
    const auto item = itemFromElement(string(u"Reel 5"_s));
    item->title = u"edited"_s;
    EXPECT_EQ(elementFromItem(*item), elementFromItem({0, u"edited"_s, 0, 0, 0, 0, 0}));
}

} // namespace
