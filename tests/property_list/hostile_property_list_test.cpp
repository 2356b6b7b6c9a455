#include "property_list/BinaryFile.h"
#include "property_list/printing.h"
#include "property_list/property_list_reader.h"

#include <gtest/gtest.h>

using namespace vexa;

/// Files made to exhaust stack, memory or time. They are large enough for anything slower than
/// linear to exceed the test's time limit.
namespace {

constexpr qsizetype million = 1'000'000;

QByteArray element(const char* name, const QByteArray& content) {
    return QByteArray("<") + name + ">" + content + "</" + name + ">";
}

QByteArray numbered(const char* before, const char* after) {
    QByteArray text;
    for (qsizetype i = 0; i < million; ++i)
        text += before + QByteArray::number(i) + after;
    return text;
}

TEST(HostilePropertyList, AMillionNestedArrays) {
    const auto start = QByteArray("<array>").repeated(million);
    EXPECT_EQ(readPropertyList(start), std::nullopt);
    EXPECT_EQ(readPropertyList(start + QByteArray("</array>").repeated(million)), std::nullopt);
}

TEST(HostilePropertyList, AMillionNestedDictionaries) {
    EXPECT_EQ(readPropertyList(QByteArray("<dict><key>a</key>").repeated(million)), std::nullopt);
}

TEST(HostilePropertyList, AMillionKeys) {
    const auto value = readPropertyList(element("dict", numbered("<key>", "</key><true/>")));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->as<PropertyList::Dictionary>()->size(), 1'000'000u);
}

TEST(HostilePropertyList, AMillionEqualKeys) {
    PropertyList::Dictionary expected;
    expected.set(QStringLiteral("a"), PropertyList(false));
    const auto keys = QByteArray("<key>a</key><true/>").repeated(million);
    EXPECT_EQ(readPropertyList(element("dict", keys + "<key>a</key><false/>")),
              PropertyList(expected));
}

TEST(HostilePropertyList, MoreValuesThanTheMemoryForThem) {
    EXPECT_TRUE(readPropertyList(element("array", QByteArray("<true/>").repeated(8 * million))));
    EXPECT_FALSE(readPropertyList(element("array", QByteArray("<true/>").repeated(9 * million))));
}

TEST(HostilePropertyList, ATagThatNeverCloses) {
    EXPECT_EQ(readPropertyList("<array " + QByteArray(50 * million, 'a')), std::nullopt);
    EXPECT_EQ(readPropertyList("<!DOCTYPE " + QByteArray(50 * million, 'a')), std::nullopt);
    EXPECT_EQ(readPropertyList("<?xml " + QByteArray(50 * million, '?')), std::nullopt);
    EXPECT_EQ(readPropertyList("<!--" + QByteArray(50 * million, '-')), std::nullopt);
    EXPECT_EQ(readPropertyList("<string><![CDATA[" + QByteArray(50 * million, ']')), std::nullopt);
    EXPECT_EQ(readPropertyList("<string>&" + QByteArray(50 * million, 'a')), std::nullopt);
}

TEST(HostilePropertyList, ManyOfWhatIsPassedOver) {
    const auto attributes = QByteArray(" a=\"b\"").repeated(300'000);
    EXPECT_EQ(readPropertyList("<true" + attributes + "/>"), PropertyList(true));
    const auto comments = QByteArray("<!-- -->").repeated(million);
    EXPECT_EQ(readPropertyList(comments + "<true/>"), PropertyList(true));
}

TEST(HostilePropertyList, AMillionReferencesAndSectionsInOneString) {
    const auto entities =
        readPropertyList(element("string", QByteArray("&amp;").repeated(million)));
    EXPECT_EQ(entities, PropertyList(QString(million, u'&')));
    const auto sections = QByteArray("<![CDATA[a]]>").repeated(million);
    EXPECT_EQ(readPropertyList(element("string", sections)), PropertyList(QString(million, u'a')));
    EXPECT_EQ(readPropertyList(element("string", QByteArray("&").repeated(million))), std::nullopt);
}

TEST(HostilePropertyList, ANumberOfAMillionDigits) {
    const QByteArray digits(million, '1');
    EXPECT_EQ(readPropertyList(element("integer", digits)), std::nullopt);
    EXPECT_EQ(readPropertyList(element("string", "&#" + digits + ";")), std::nullopt);
    EXPECT_EQ(readPropertyList(element("real", digits)), std::nullopt);
}

TEST(HostilePropertyList, TwoToTheFortiethReferencesInAFewHundredBytes) {
    for (const bool dictionaries : {false, true}) {
        BinaryFile file;
        for (std::uint64_t i = 1; i <= 40; ++i)
            file.objects.push_back(dictionaries ? "\xD2" + file.references({41, 42, i, i})
                                                : "\xA2" + file.references({i, i}));
        file.objects.insert(file.objects.end(), {"\xA0",
                                                 "\x51"
                                                 "a",
                                                 "\x51"
                                                 "b"});
        EXPECT_EQ(readPropertyList(file.bytes()), std::nullopt);
    }
}

/// An array of a million references to the second object.
QByteArray aMillionTimes(const std::string& object) {
    BinaryFile file{{}, 4, 1};
    file.objects = {"\xAF\x12" + bigEndianBytes(million, 4) + std::string(million, '\1'), object};
    return file.bytes();
}

std::string latin1Object(std::size_t length) {
    return "\x5F\x12" + bigEndianBytes(length, 4) + std::string(length, 'a');
}

TEST(HostilePropertyList, AMillionReferencesToOneObject) {
    const auto strings = readPropertyList(aMillionTimes(latin1Object(20)));
    ASSERT_TRUE(strings);
    EXPECT_EQ(strings->as<PropertyList::Array>()->size(), 1'000'000u);
    EXPECT_EQ(readPropertyList(aMillionTimes(latin1Object(1'000'000))), std::nullopt);
    EXPECT_EQ(readPropertyList(aMillionTimes("\xAF\x10\xFF" + std::string(255, '\0'))),
              std::nullopt);
}

TEST(HostilePropertyList, AMillionEmptyArraysInOneAfterTheOther) {
    BinaryFile file{{}, 4, 4};
    for (std::uint64_t i = 1; i < 1'000'000; ++i)
        file.objects.push_back("\xA1" + file.references({i}));
    file.objects.emplace_back("\xA0");
    EXPECT_EQ(readPropertyList(file.bytes()), std::nullopt);
}

TEST(HostilePropertyList, AMillionTimesTheSameLongKey) {
    BinaryFile file{{}, 4, 1};
    file.objects = {"\xDF\x12" + bigEndianBytes(million, 4) + std::string(million, '\1') +
                        std::string(million, '\2'),
                    latin1Object(1'000'000), "\x09"};
    EXPECT_EQ(readPropertyList(file.bytes()), std::nullopt);
}

} // namespace
