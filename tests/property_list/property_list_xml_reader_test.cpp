#include "property_list/printing.h"
#include "property_list/property_list_xml_reader.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

std::optional<PropertyList> readXmlPropertyList(QByteArrayView bytes) {
    MemoryBudget budget;
    return readXmlPropertyList(bytes, budget);
}

using Array = PropertyList::Array;
using Date = PropertyList::Date;
using Dictionary = PropertyList::Dictionary;

PropertyList string(const char* utf8) { return PropertyList(QString::fromUtf8(utf8)); }

PropertyList one(const char* key, PropertyList value) {
    Dictionary dictionary;
    dictionary.set(QString::fromUtf8(key), std::move(value));
    return PropertyList(std::move(dictionary));
}

struct XmlAndValue {
    const char* xml;
    PropertyList value;
};

class XmlPropertyList : public testing::TestWithParam<XmlAndValue> {};

TEST_P(XmlPropertyList, IsReadAsItsValue) {
    EXPECT_EQ(readXmlPropertyList(GetParam().xml), GetParam().value) << GetParam().xml;
}

INSTANTIATE_TEST_SUITE_P(Values, XmlPropertyList,
                         testing::Values(XmlAndValue{"<true/>", PropertyList(true)},
                                         XmlAndValue{"<false></false>", PropertyList(false)},
                                         XmlAndValue{"<integer>42</integer>", PropertyList(42)},
                                         XmlAndValue{"<real>0.5</real>", PropertyList(0.5)},
                                         XmlAndValue{"<date>2001-01-01T00:00:01Z</date>",
                                                     PropertyList(Date{1})},
                                         XmlAndValue{"<data>\n\tAAE C\r\n/w==\n</data>",
                                                     PropertyList(QByteArray("\0\1\2\xFF", 4))},
                                         XmlAndValue{"<data/>", PropertyList(QByteArray())},
                                         XmlAndValue{"<string>Act 1</string>", string("Act 1")},
                                         XmlAndValue{"<string></string>", string("")},
                                         XmlAndValue{"<string/>", string("")}));

INSTANTIATE_TEST_SUITE_P(
    Text, XmlPropertyList,
    testing::Values(XmlAndValue{"<string> \r\n\r\t\x01\x1F </string>",
                                string(" \r\n\r\t\x01\x1F ")},
                    XmlAndValue{"<string>\u00E4\U0001F600</string>", string("\u00E4\U0001F600")},
                    XmlAndValue{"<string>a&lt;b&#x41;&amp;</string>", string("a<bA&")},
                    XmlAndValue{"<string>a<![CDATA[<&amp;]]]>b&gt;</string>", string("a<&amp;]b>")},
                    XmlAndValue{"<string><![CDATA[]]>a<![CDATA[b]]></string>", string("ab")},
                    XmlAndValue{"<string>]]></string>", string("]]>")},
                    XmlAndValue{"<dict><key>&lt;<![CDATA[k]]></key><true/></dict>",
                                one("<k", PropertyList(true))}));

INSTANTIATE_TEST_SUITE_P(
    Containers, XmlPropertyList,
    testing::Values(
        XmlAndValue{"<array/>", PropertyList(Array())},
        XmlAndValue{"<array> \r\n\t</array>", PropertyList(Array())},
        XmlAndValue{"<dict></dict>", PropertyList(Dictionary())},
        XmlAndValue{"<array><true/> <array><integer>1</integer></array></array>",
                    PropertyList(Array{PropertyList(true), PropertyList(Array{PropertyList(1)})})},
        XmlAndValue{"<dict><key>a</key><integer>1</integer><key>a</key><integer>2</integer></dict>",
                    one("a", PropertyList(2))},
        XmlAndValue{"<dict><key/><true/></dict>", one("", PropertyList(true))},
        XmlAndValue{"<dict> <!-- a --> <key>a</key> <?b?> <true/> <!-- </dict> --> </dict>",
                    one("a", PropertyList(true))}));

INSTANTIATE_TEST_SUITE_P(
    Surroundings, XmlPropertyList,
    testing::Values(XmlAndValue{"<plist><true/></plist>", PropertyList(true)},
                    XmlAndValue{"<?xml version=\"1.0\"?><true/>", PropertyList(true)},
                    XmlAndValue{" \n<!-- a --><!DOCTYPE plist SYSTEM \"x\"><!-- b --><true/>",
                                PropertyList(true)},
                    XmlAndValue{"<plist version=\"2.0\" lang = 'x'><true a=\"b\" /></plist >",
                                PropertyList(true)},
                    XmlAndValue{"<array\nid=\"1\"><integer x='y'>1</integer\t></array\r\n>",
                                PropertyList(Array{PropertyList(1)})},
                    XmlAndValue{"<plist><true/><!-- a --> </plist><not even xml",
                                PropertyList(true)},
                    XmlAndValue{"<true/><false/>", PropertyList(true)},
                    XmlAndValue{"<true/></plist>", PropertyList(true)}));

class RefusedXml : public testing::TestWithParam<const char*> {};

TEST_P(RefusedXml, IsNoPropertyList) {
    EXPECT_EQ(readXmlPropertyList(GetParam()), std::nullopt) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Nothing, RefusedXml,
                         testing::Values("", " ", "text", "<", "<>", "</>", "<plist/>",
                                         "<plist></plist>", "<?xml version='1.0'?>",
                                         "text<true/>"));

INSTANTIATE_TEST_SUITE_P(
    Document, RefusedXml,
    testing::Values("<plist><true/><false/></plist>", "<plist><true/>text</plist>",
                    "<plist><true/></dict>", "<!DOCTYPE plist [ ]><true/>",
                    "<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><string>&a;</string></plist>",
                    "<!DOCTYPE plist", "<!DOCTYPE a><!DOCTYPE a><true/>", "<!-- <true/>",
                    "<?xml <true/>", "<true/ >", "<true", "<True/>", "<nil/>", "<plist><plist>"));

INSTANTIATE_TEST_SUITE_P(
    Scalars, RefusedXml,
    testing::Values("<true>1</true>", "<integer/>", "<integer></integer>", "<integer>1 </integer>",
                    "<integer>1</real>", "<integer><!-- -->1</integer>",
                    "<integer><![CDATA[1]]></integer>", "<integer>&#49;</integer>", "<real/>",
                    "<date/>", "<date>yesterday</date>", "<data>AA==", "<data><true/></data>"));

INSTANTIATE_TEST_SUITE_P(Text, RefusedXml,
                         testing::Values("<string>a<!-- b --></string>", "<string>a<?b?></string>",
                                         "<string>a & b</string>", "<string>&nbsp;</string>",
                                         "<string>&#xD800;</string>", "<string>&#x110000;</string>",
                                         "<string>a<b/></string>", "<string>a</strin>",
                                         "<string>a</stringy>", "<string><![CDATA[a</string>",
                                         "<string>a", "<string>\xFF</string>",
                                         "<string>a&amp</string>"));

INSTANTIATE_TEST_SUITE_P(
    Containers, RefusedXml,
    testing::Values("<array>", "<array><true/>", "<array></dict>", "<array>text</array>",
                    "<array><key>a</key></array>", "<dict><key>a</key></dict>",
                    "<dict><key>a</key><key>b</key></dict>", "<dict><true/></dict>",
                    "<dict><string>a</string><true/></dict>", "<dict><key>a</key><true/>",
                    "<dict><key>a</key><true/><key>b</key></dict>", "<dict><key>a",
                    "<key>a</key>"));

TEST(PropertyListXmlReader, TakesANulLikeAnyOtherCharacter) {
    const PropertyList nul{QString(QChar(u'\0'))};
    EXPECT_EQ(readXmlPropertyList("<string>&#0;</string>"), nul);
    EXPECT_EQ(readXmlPropertyList({"<string>\0</string>", 18}), nul);
}

TEST(PropertyListXmlReader, KeepsAByteOrderMarkInText) {
    const QChar mark(QChar::ByteOrderMark);
    EXPECT_EQ(readXmlPropertyList("<array><string>\uFEFF\uFEFFa</string><string>a\uFEFF</string>"
                                  "<dict><key>\uFEFF</key><true/></dict></array>"),
              PropertyList(Array{PropertyList(QString(mark) + mark + u'a'),
                                 PropertyList(QString(u'a') + mark),
                                 PropertyList(Dictionary({{QString(mark), PropertyList(true)}},
                                                         PropertyList::Duplicates::keepLast))}));
}

TEST(PropertyListXmlReader, ReadsAsDeepAs512Values) {
    const auto nested = [](qsizetype depth) {
        return readXmlPropertyList(QByteArray("<array>").repeated(depth) +
                                   QByteArray("</array>").repeated(depth));
    };
    EXPECT_TRUE(nested(512));
    EXPECT_FALSE(nested(513));
}

TEST(PropertyListXmlReader, RefusesATruncatedFileWhereverItEnds) {
    const auto whole = xmlPropertyList(
        one("k", PropertyList(Array{PropertyList(1), PropertyList(0.5), PropertyList(true),
                                    string("<\u00E4>"), PropertyList(Date{1}),
                                    PropertyList(QByteArray("data"))})));
    ASSERT_TRUE(readXmlPropertyList(whole));
    for (qsizetype size = 0; size < whole.size() - 1; ++size)
        EXPECT_EQ(readXmlPropertyList(whole.first(size)), std::nullopt) << size;
}

TEST(PropertyListXmlReader, KeepsTheElementsOfNestedContainersApart) {
    EXPECT_EQ(
        readXmlPropertyList("<array><true/><array><integer>1</integer><dict><key>a</key>"
                            "<array><integer>2</integer></array></dict></array>"
                            "<false/></array>"),
        PropertyList(Array{
            PropertyList(true),
            PropertyList(Array{PropertyList(1), one("a", PropertyList(Array{PropertyList(2)}))}),
            PropertyList(false)}));
}

} // namespace
