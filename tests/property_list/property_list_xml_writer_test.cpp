#include "property_list/property_list_xml_writer.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace vexa;

namespace {

using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

std::string document(const std::string& root) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">\n" +
           root + "</plist>\n";
}

template<typename T>
std::string written(T value) {
    return xmlPropertyList(PropertyList(std::move(value))).toStdString();
}

TEST(PropertyListXmlWriter, WritesABatchList) {
    Dictionary item;
    item.set(QStringLiteral("vexatitle"), PropertyList(QStringLiteral("Act 1")));
    item.set(QStringLiteral("vexastart"), PropertyList(16777216));
    item.set(QStringLiteral("vexaid"), PropertyList(0));
    Dictionary root;
    root.set(QStringLiteral("vexabatchlist"), PropertyList(Array{PropertyList(item)}));
    EXPECT_EQ(written(root), document("<dict>\n"
                                      "\t<key>vexabatchlist</key>\n"
                                      "\t<array>\n"
                                      "\t\t<dict>\n"
                                      "\t\t\t<key>vexaid</key>\n"
                                      "\t\t\t<integer>0</integer>\n"
                                      "\t\t\t<key>vexastart</key>\n"
                                      "\t\t\t<integer>16777216</integer>\n"
                                      "\t\t\t<key>vexatitle</key>\n"
                                      "\t\t\t<string>Act 1</string>\n"
                                      "\t\t</dict>\n"
                                      "\t</array>\n"
                                      "</dict>\n"));
}

TEST(PropertyListXmlWriter, WritesEmptyValues) {
    EXPECT_EQ(written(Array()), document("<array/>\n"));
    EXPECT_EQ(written(Dictionary()), document("<dict/>\n"));
    EXPECT_EQ(written(QString()), document("<string></string>\n"));
    EXPECT_EQ(written(QByteArray()), document("<data>\n</data>\n"));
    EXPECT_EQ(written(Array{PropertyList(QByteArray())}),
              document("<array>\n\t<data>\n\t</data>\n</array>\n"));
}

TEST(PropertyListXmlWriter, WritesNumbersInDecimal) {
    EXPECT_EQ(written(true), document("<true/>\n"));
    EXPECT_EQ(written(false), document("<false/>\n"));
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()),
              document("<integer>-9223372036854775808</integer>\n"));
    EXPECT_EQ(written(std::numeric_limits<std::uint64_t>::max()),
              document("<integer>18446744073709551615</integer>\n"));
    EXPECT_EQ(written(0.1), document("<real>0.10000000000000001</real>\n"));
}

// No date element can represent them, and any other date would be wrong.
TEST(PropertyListXmlWriter, WritesMomentsThatAreNoDatesAsTheirNumberOfSeconds) {
    const auto number = [](double seconds) { return written(PropertyList::Date{seconds}); };
    EXPECT_EQ(number(1e300), document("<real>1.0000000000000001e+300</real>\n"));
    EXPECT_EQ(number(std::numeric_limits<double>::quiet_NaN()), document("<real>nan</real>\n"));
}

TEST(PropertyListXmlWriter, WritesDatesInWholeSeconds) {
    EXPECT_EQ(written(PropertyList::Date{0.75}), document("<date>2001-01-01T00:00:00Z</date>\n"));
}

TEST(PropertyListXmlWriter, EscapesThreeCharactersOnly) {
    EXPECT_EQ(written(QStringLiteral("<&>\"'\r\t\x01")),
              document("<string>&lt;&amp;&gt;\"'\r\t\x01</string>\n"));
    Dictionary dictionary;
    dictionary.set(QStringLiteral("<&>"), PropertyList(true));
    EXPECT_EQ(written(dictionary),
              document("<dict>\n\t<key>&lt;&amp;&gt;</key>\n\t<true/>\n</dict>\n"));
}

TEST(PropertyListXmlWriter, WritesUtf8) {
    EXPECT_EQ(written(QString::fromUtf8("\x7F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF")),
              document("<string>\x7F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF</string>\n"));
}

TEST(PropertyListXmlWriter, ReplacesHalvesOfSurrogatePairs) {
    for (const QString& text : {QString(QChar(0xD83D)), QString(QChar(0xDE00))})
        EXPECT_EQ(written(text), document("<string>\uFFFD</string>\n"));
    EXPECT_EQ(written(QStringLiteral("\xD83D\xD83D\xDE00\xDE00")),
              document("<string>\uFFFD\U0001F600\uFFFD</string>\n"));
}

TEST(PropertyListXmlWriter, SortsKeysByUtf16CodeUnit) {
    Dictionary dictionary;
    for (const auto* key : {"\uFFFD", "\U0001F600", "a", "B"})
        dictionary.set(QString::fromUtf8(key), PropertyList(true));
    EXPECT_EQ(written(dictionary), document("<dict>\n"
                                            "\t<key>B</key>\n\t<true/>\n"
                                            "\t<key>a</key>\n\t<true/>\n"
                                            "\t<key>\U0001F600</key>\n\t<true/>\n"
                                            "\t<key>\uFFFD</key>\n\t<true/>\n"
                                            "</dict>\n"));
}

struct DataLines {
    int depth;
    std::size_t length;
};

class WrittenData : public testing::TestWithParam<DataLines> {};

TEST_P(WrittenData, GetsShorterLinesTheDeeperItIs) {
    const auto [depth, length] = GetParam();
    PropertyList value(QByteArray(57, '\0')); // 76 characters in base64
    for (int i = 0; i < depth; ++i)
        value = PropertyList(Array{value});
    const auto xml = xmlPropertyList(value).toStdString();

    const std::string tabs(static_cast<std::size_t>(depth), '\t');
    const auto lineTabs = tabs.substr(0, 8);
    std::string expected = tabs + "<data>\n";
    for (std::size_t left = 76; left > 0; left -= std::min(left, length))
        expected += lineTabs + std::string(std::min(left, length), 'A') + "\n";
    expected += tabs + "</data>\n";
    EXPECT_NE(xml.find(expected), std::string::npos) << xml;
}

INSTANTIATE_TEST_SUITE_P(Depths, WrittenData,
                         testing::Values(DataLines{0, 76}, DataLines{1, 68}, DataLines{7, 20},
                                         DataLines{8, 12}, DataLines{9, 12}, DataLines{20, 12}));

} // namespace
