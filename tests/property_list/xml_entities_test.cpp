#include "property_list/xml_entities.h"

#include <gtest/gtest.h>

using namespace vexa;

namespace {

TEST(XmlEntities, PutsInWhatIsReferredTo) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"", ""},
        {"plain; text", "plain; text"},
        {"&lt;&gt;&amp;&quot;&apos;", "<>&\"'"},
        {"a&amp;lt;b", "a&lt;b"},
        {"&#65;&#x41;&#x000041;", "AAA"},
        {"&#13;", "\r"},
        {"&#x7FF;&#xFFFF;&#x1F600;&#x10FFFF;", "\u07FF\uFFFF\U0001F600\U0010FFFF"},
        {"&#xD7FF;&#xE000;", "\uD7FF\uE000"},
        {"&#0;", {"\0", 1}},
    };
    for (const auto& [text, expected] : rows) {
        std::string unescaped = "before ";
        EXPECT_TRUE(xml::appendUnescaped(text, unescaped)) << text;
        EXPECT_EQ(unescaped, "before " + std::string(expected)) << text;
    }
}

TEST(XmlEntities, RefusesAllOtherReferences) {
    for (const char* text : {"&", "a & b", "&;", "&lt", "&nbsp;", "&LT;", "&#;", "&#x;", "&#X41;",
                             "&#xD800;", "&#xDFFF;", "&#55296;", "&#x110000;", "&#1114112;",
                             "&#4294967361;", "&#-65;", "&# 65;", "&#65 ;", "&&amp;"}) {
        std::string unescaped;
        EXPECT_FALSE(xml::appendUnescaped(text, unescaped)) << text;
    }
}

} // namespace
