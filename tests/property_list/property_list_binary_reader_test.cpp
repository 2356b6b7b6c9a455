#include "property_list/BinaryFile.h"
#include "property_list/printing.h"
#include "property_list/property_list_binary_reader.h"

#include <gtest/gtest.h>

#include <limits>

using namespace vexa;

namespace {

std::optional<PropertyList> readBinaryPropertyList(QByteArrayView bytes) {
    MemoryBudget budget;
    return readBinaryPropertyList(bytes, budget);
}

using Array = PropertyList::Array;
using Date = PropertyList::Date;
using Dictionary = PropertyList::Dictionary;
using namespace std::string_literals;

std::optional<PropertyList> readObjects(std::vector<std::string> objects) {
    return readBinaryPropertyList(BinaryFile{std::move(objects)}.bytes());
}

PropertyList string(const char16_t* text) { return PropertyList(QString::fromUtf16(text)); }

struct ObjectAndValue {
    std::string object;
    PropertyList value;
};

class BinaryObject : public testing::TestWithParam<ObjectAndValue> {};

TEST_P(BinaryObject, IsReadAsItsValue) {
    EXPECT_EQ(readObjects({GetParam().object}), GetParam().value);
}

constexpr auto largest = std::numeric_limits<std::uint64_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Integers, BinaryObject,
    testing::Values(ObjectAndValue{"\x10\x00"s, PropertyList(0)},
                    ObjectAndValue{"\x10\xFF"s, PropertyList(255)},
                    ObjectAndValue{"\x11\xFF\xFE"s, PropertyList(65534)},
                    ObjectAndValue{"\x12\xFF\xFF\xFF\xFF"s, PropertyList(4294967295)},
                    ObjectAndValue{"\x13"s + std::string(8, '\xFF'), PropertyList(-1)},
                    ObjectAndValue{"\x13\x80"s + std::string(7, '\0'),
                                   PropertyList(std::numeric_limits<std::int64_t>::min())},
                    ObjectAndValue{"\x14"s + std::string(8, '\0') + std::string(8, '\xFF'),
                                   PropertyList(largest)},
                    ObjectAndValue{"\x14"s + std::string(8, '\x7F') + std::string(7, '\0') + "\5",
                                   PropertyList(5)}));

INSTANTIATE_TEST_SUITE_P(Scalars, BinaryObject,
                         testing::Values(ObjectAndValue{"\x08", PropertyList(false)},
                                         ObjectAndValue{"\x09", PropertyList(true)},
                                         ObjectAndValue{"\x22\x3F\xC0\x00\x00"s, PropertyList(1.5)},
                                         ObjectAndValue{"\x23\xBF\xF8"s + std::string(6, '\0'),
                                                        PropertyList(-1.5)},
                                         ObjectAndValue{"\x33\x3F\xF8"s + std::string(6, '\0'),
                                                        PropertyList(Date{1.5})}));

INSTANTIATE_TEST_SUITE_P(
    TextAndData, BinaryObject,
    testing::Values(ObjectAndValue{"\x50", PropertyList(QString())},
                    ObjectAndValue{"\x53"s + "a\0b"s, PropertyList(QStringLiteral("a\0b"))},
                    ObjectAndValue{"\x51\xE4", string(u"\u00E4")},
                    ObjectAndValue{"\x5F\x10\x02"s + "ab", string(u"ab")},
                    ObjectAndValue{"\x5F\x13"s + bigEndianBytes(2, 8) + "ab", string(u"ab")},
                    ObjectAndValue{"\x62\x20\xAC\x00\x61"s, string(u"\u20ACa")},
                    ObjectAndValue{"\x62\xD8\x3D\xDE\x00"s, string(u"\U0001F600")},
                    ObjectAndValue{"\x62\xD8\x3D\x00\x61"s, string(u"\uFFFDa")},
                    ObjectAndValue{"\x62\xDE\x00\xD8\x3D"s, string(u"\uFFFD\uFFFD")},
                    ObjectAndValue{"\x43\x00\xFF\x01"s, PropertyList(QByteArray("\0\xFF\1", 3))},
                    ObjectAndValue{"\x40", PropertyList(QByteArray())}));

PropertyList uid(std::uint64_t number) {
    Dictionary dictionary;
    dictionary.set(QStringLiteral("CF$UID"), PropertyList(number));
    return PropertyList(dictionary);
}

INSTANTIATE_TEST_SUITE_P(
    Uids, BinaryObject,
    testing::Values(ObjectAndValue{"\x80\xFF", uid(255)}, ObjectAndValue{"\x82\1\0\2"s, uid(65538)},
                    ObjectAndValue{"\x83\xFF\xFF\xFF\xFF", uid(4294967295)},
                    ObjectAndValue{"\x87"s + std::string(8, '\xFF'), uid(largest)}));

INSTANTIATE_TEST_SUITE_P(Containers, BinaryObject,
                         testing::Values(ObjectAndValue{"\xA0", PropertyList(Array())},
                                         ObjectAndValue{"\xD0", PropertyList(Dictionary())}));

TEST(PropertyListBinaryReader, FollowsReferences) {
    Dictionary expected;
    expected.set(QStringLiteral("a"), PropertyList(Array{PropertyList(7), PropertyList(7)}));
    expected.set(QStringLiteral("\u20AC"), PropertyList(true));
    const std::vector<std::string> objects{"\xD2\1\2\3\4", "\x51"s + "a", "\x61\x20\xAC",
                                           "\xA2\5\5",     "\x09",        "\x10\x07"};
    EXPECT_EQ(readObjects(objects), PropertyList(expected));
}

TEST(PropertyListBinaryReader, TakesAllSizesOfOffsetsAndReferences) {
    for (std::size_t offsetSize = 1; offsetSize <= 8; ++offsetSize)
        for (std::size_t referenceSize = 1; referenceSize <= 8; ++referenceSize) {
            BinaryFile file{{}, offsetSize, referenceSize, 1};
            file.objects = {"\x09", "\xA1" + file.references({0})};
            EXPECT_EQ(readBinaryPropertyList(file.bytes()), PropertyList(Array{PropertyList(true)}))
                << offsetSize << " " << referenceSize;
        }
    for (const std::size_t size : {0, 9, 255}) {
        EXPECT_EQ(readBinaryPropertyList(BinaryFile{{"\x09"}, size, 1}.bytes()), std::nullopt);
        EXPECT_EQ(readBinaryPropertyList(BinaryFile{{"\x09"}, 1, size}.bytes()), std::nullopt);
    }
}

TEST(PropertyListBinaryReader, TakesAnyDigitAfterTheZeroOfTheVersion) {
    for (const char* header : {"bplist00", "bplist01", "bplist09"})
        EXPECT_EQ(readBinaryPropertyList(BinaryFile{{"\x09"}, 1, 1, 0, header}.bytes()),
                  PropertyList(true));
    for (const char* header : {"bplist10", "bplist0a", "bplist0/", "Bplist00", "xplist00"})
        EXPECT_EQ(readBinaryPropertyList(BinaryFile{{"\x09"}, 1, 1, 0, header}.bytes()),
                  std::nullopt)
            << header;
}

TEST(PropertyListBinaryReader, KeepsTheFirstOfEqualKeys) {
    Dictionary expected;
    expected.set(QStringLiteral("k"), PropertyList(1));
    // The same key as one object, as two objects, and as two of different widths.
    EXPECT_EQ(readObjects({"\xD2\1\1\2\3", "\x51k", "\x10\1", "\x10\2"}), PropertyList(expected));
    EXPECT_EQ(readObjects({"\xD2\1\4\2\3", "\x51k", "\x10\1", "\x10\2", "\x51k"}),
              PropertyList(expected));
    EXPECT_EQ(readObjects({"\xD2\1\4\2\3", "\x51k", "\x10\1", "\x10\2", "\x61\0k"s}),
              PropertyList(expected));
}

TEST(PropertyListBinaryReader, TellsKeysOfTheSameBytesApart) {
    Dictionary expected;
    expected.set(QStringLiteral("ab"), PropertyList(1));
    expected.set(QString(QChar(0x6162)), PropertyList(2));
    EXPECT_EQ(readObjects({"\xD2\1\2\3\4", "\x52"s + "ab", "\x61"s + "ab", "\x10\1", "\x10\2"}),
              PropertyList(expected));
}

class RefusedObjects : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(RefusedObjects, AreNoPropertyList) { EXPECT_EQ(readObjects(GetParam()), std::nullopt); }

using Objects = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(NotKnown, RefusedObjects,
                         testing::Values(Objects{"\x00"s}, Objects{"\x0F"}, Objects{"\x01"},
                                         Objects{"\xC0"}, Objects{"\x70"}, Objects{"\x90"},
                                         Objects{"\xB0"}, Objects{"\xE0"}, Objects{"\xF0"},
                                         Objects{"\xA1\1", "\x00"s}));

INSTANTIATE_TEST_SUITE_P(WrongSize, RefusedObjects,
                         testing::Values(Objects{"\x10"}, Objects{"\x13\0\0\0"s},
                                         Objects{"\x15"s + std::string(32, '\0')},
                                         Objects{"\x20\0"s},
                                         Objects{"\x24"s + std::string(16, '\0')},
                                         Objects{"\x32\0\0\0\0"s}, Objects{"\x52"s + "a"},
                                         Objects{"\x61\0"s}, Objects{"\x5F"}, Objects{"\x5F\x50"},
                                         Objects{"\x5F\x23"s + std::string(8, '\0')},
                                         Objects{"\x41"}, Objects{"\x80"}, Objects{"\x83\1\2\3"},
                                         Objects{"\x88"s + std::string(9, '\0')}));

INSTANTIATE_TEST_SUITE_P(HugeCount, RefusedObjects,
                         testing::Values(Objects{"\xAF\x13\x80"s + std::string(7, '\0')},
                                         Objects{"\xDF\x13\x80"s + std::string(7, '\0')},
                                         Objects{"\x4F\x13\x80"s + std::string(7, '\0')},
                                         Objects{"\x5F\x13\x80"s + std::string(7, '\0')},
                                         Objects{"\x6F\x13\x80"s + std::string(7, '\0')},
                                         Objects{"\x6F\x13"s + std::string(8, '\xFF')},
                                         Objects{"\xAF\x12\xFF\xFF\xFF\xFF"}));

INSTANTIATE_TEST_SUITE_P(WrongReference, RefusedObjects,
                         testing::Values(Objects{"\xA1\1"}, Objects{"\xA1\xFF"}, Objects{"\xA1"},
                                         Objects{"\xD1\1", "\x09"}, Objects{"\xD1\1\2", "\x51k"}));

INSTANTIATE_TEST_SUITE_P(Cycle, RefusedObjects,
                         testing::Values(Objects{"\xA1\0"s}, Objects{"\xA2\1\0"s, "\x09"},
                                         Objects{"\xA1\1", "\xA1\2", "\xA1\0"s},
                                         Objects{"\xD1\1\0"s, "\x51k"}));

INSTANTIATE_TEST_SUITE_P(KeyIsNoString, RefusedObjects,
                         testing::Values(Objects{"\xD1\1\1", "\x10\1"},
                                         Objects{"\xD1\1\1", "\x41k"},
                                         Objects{"\xD1\1\1", "\x80\1"},
                                         Objects{"\xD1\0\1"s, "\x09"}));

TEST(PropertyListBinaryReader, ReadsAsDeepAs512Values) {
    const auto nested = [](std::size_t depth) {
        BinaryFile file{{}, 4, 4};
        for (std::size_t i = 1; i < depth; ++i)
            file.objects.push_back("\xA1" + file.references({i}));
        file.objects.emplace_back("\x09");
        return readBinaryPropertyList(file.bytes());
    };
    EXPECT_TRUE(nested(512));
    EXPECT_FALSE(nested(513));
}

TEST(PropertyListBinaryReader, RefusesFilesThatAreNotObjectsTableAndTrailer) {
    const BinaryFile file{{}, 1, 1};
    const auto table = "\x08"s;
    EXPECT_EQ(readBinaryPropertyList(file.withTrailer("bplist00\x09", table, 1)),
              PropertyList(true));
    EXPECT_EQ(readBinaryPropertyList(file.withTrailer("bplist00\x09", table + "\x08", 1)),
              std::nullopt);
    for (const auto count : {std::uint64_t{0}, std::uint64_t{2}, std::uint64_t{1} << 63, largest})
        EXPECT_EQ(readBinaryPropertyList(file.withTrailer("bplist00\x09", table, count)),
                  std::nullopt)
            << count;
    EXPECT_EQ(readBinaryPropertyList(file.withTrailer("bplist00", {}, 0)), std::nullopt);
}

TEST(PropertyListBinaryReader, RefusesOffsetsOutsideTheObjects) {
    const BinaryFile file{{}, 1, 1};
    for (const char* offset : {"\x00", "\x07", "\x09", "\xFF"})
        EXPECT_EQ(
            readBinaryPropertyList(file.withTrailer("bplist00\x09", std::string(offset, 1), 1)),
            std::nullopt);
}

TEST(PropertyListBinaryReader, RefusesARootThatIsNoObject) {
    for (const auto root : {std::uint64_t{1}, std::uint64_t{1} << 63, largest})
        EXPECT_EQ(readBinaryPropertyList(BinaryFile{{"\x09"}, 1, 1, root}.bytes()), std::nullopt);
}

TEST(PropertyListBinaryReader, RefusesATruncatedFileWhereverItEnds) {
    const auto whole = BinaryFile{{"\xD1\1\2", "\x51k", "\xA1\3", "\x11\1\2"}}.bytes();
    ASSERT_TRUE(readBinaryPropertyList(whole));
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_EQ(readBinaryPropertyList(whole.first(size)), std::nullopt) << size;
}

} // namespace
