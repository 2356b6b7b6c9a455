#include "property_list/PropertyList.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <limits>

using namespace vexa;

namespace {

using Array = PropertyList::Array;
using Date = PropertyList::Date;
using Dictionary = PropertyList::Dictionary;
using Duplicates = PropertyList::Duplicates;
using Entries = std::vector<PropertyList::Entry>;

PropertyList list(Array values) { return PropertyList(std::move(values)); }

TEST(PropertyList, KeepsIntegersByValueWhateverTheirType) {
    EXPECT_EQ(*PropertyList(5).as<std::uint64_t>(), 5u);
    EXPECT_EQ(*PropertyList(-5).as<std::int64_t>(), -5);
    EXPECT_EQ(PropertyList(5), PropertyList(std::uint64_t{5}));
    EXPECT_EQ(PropertyList(std::numeric_limits<std::uint64_t>::max()).as<std::int64_t>(), nullptr);
}

TEST(PropertyList, IsOfExactlyOneKind) {
    EXPECT_EQ(PropertyList(true).as<std::uint64_t>(), nullptr);
    EXPECT_TRUE(*PropertyList(true).as<bool>());
    EXPECT_FALSE(*PropertyList().as<bool>());
    EXPECT_NE(PropertyList(true), PropertyList(1));
    EXPECT_NE(PropertyList(1), PropertyList(1.0));
    EXPECT_NE(PropertyList(1.0), PropertyList(Date{1.0}));
    EXPECT_NE(PropertyList(QStringLiteral("a")), PropertyList(QByteArray("a")));
    EXPECT_NE(list({}), PropertyList(Dictionary()));
}

TEST(PropertyList, EqualsItsCopyEvenWithANaN) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const PropertyList value = list({PropertyList(nan), PropertyList(Date{nan})});
    const PropertyList copy = value;
    EXPECT_EQ(copy, value);
    EXPECT_NE(list({PropertyList(nan)}), list({PropertyList(0.0)}));
}

TEST(PropertyList, ComparesAllTheWayDown) {
    const auto nested = [](const char* title) {
        Dictionary item;
        item.set(QStringLiteral("title"), PropertyList(QString::fromLatin1(title)));
        return list({PropertyList(1), PropertyList(item)});
    };
    EXPECT_EQ(nested("Reel"), nested("Reel"));
    EXPECT_NE(nested("Reel"), nested("reel"));
}

TEST(PropertyList, CopiesAreDeep) {
    PropertyList value = list({list({PropertyList(1)})});
    const PropertyList copy = value;
    *value.as<Array>()->front().as<Array>() = {};
    EXPECT_EQ(copy, list({list({PropertyList(1)})}));
}

TEST(PropertyListDictionary, OrdersKeysByUtf16CodeUnit) {
    const QString beyondTheBasicPlane = QString::fromUcs4(U"\U0001F600");
    const QString replacement(QChar(0xFFFD));
    Dictionary dictionary;
    for (const QString& key :
         {replacement, beyondTheBasicPlane, QStringLiteral("a"), QStringLiteral("B"), QString()})
        dictionary.set(key, PropertyList());

    QStringList keys;
    for (const auto& entry : dictionary)
        keys += entry.key;
    EXPECT_EQ(keys, QStringList({QString(), QStringLiteral("B"), QStringLiteral("a"),
                                 beyondTheBasicPlane, replacement}));
}

TEST(PropertyListDictionary, FindsWhatWasSet) {
    Dictionary dictionary;
    dictionary.set(QStringLiteral("b"), PropertyList(1));
    dictionary.set(QStringLiteral("a"), PropertyList(2));
    dictionary.set(QStringLiteral("b"), PropertyList(3));
    EXPECT_EQ(dictionary.size(), 2u);
    EXPECT_EQ(*dictionary.find(u"a"), PropertyList(2));
    EXPECT_EQ(*dictionary.find(u"b"), PropertyList(3));
    EXPECT_EQ(dictionary.find(u"c"), nullptr);
    *dictionary.find(u"a") = PropertyList(4);
    EXPECT_EQ(*dictionary.find(u"a"), PropertyList(4));
}

TEST(PropertyListDictionary, TakesEntriesInAnyOrder) {
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    const Entries entries{
        {b, PropertyList(1)}, {a, PropertyList(2)}, {b, PropertyList(3)}, {b, PropertyList(4)}};
    const Dictionary first(entries, Duplicates::keepFirst);
    const Dictionary last(entries, Duplicates::keepLast);
    EXPECT_EQ(first, Dictionary({{a, PropertyList(2)}, {b, PropertyList(1)}}, {}));
    EXPECT_EQ(last, Dictionary({{a, PropertyList(2)}, {b, PropertyList(4)}}, {}));
    EXPECT_NE(first, last);
}

} // namespace
