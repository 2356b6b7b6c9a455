#include "property_list/property_list_limits.h"
#include "property_list/property_list_reader.h"
#include "support/PeakMemory.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

using namespace vexa;
using namespace vexa::test;

/// Files of the maximum length, made to unfold to as much memory as possible.
namespace {

struct FullFile {
    const char* name;
    std::string declaration;
    std::size_t blanks; ///< MiB after the declaration, enough for the rest to be read
    std::string before;
    std::string piece; ///< repeated, with a number in place of any #
    std::string after;

    std::string text() const {
        const auto size = static_cast<std::size_t>(property_list::maximumInput);
        const auto hash = piece.find('#');
        const auto longest = piece.size() + std::numeric_limits<std::size_t>::digits10;
        std::string text;
        text.reserve(size);
        text.append(declaration).append(blanks << 20, ' ').append(before);
        for (std::size_t i = 0; text.size() + longest + after.size() <= size; ++i) {
            text += piece.substr(0, hash);
            if (hash != std::string::npos)
                text += std::to_string(i) + piece.substr(hash + 1);
        }
        text.resize(size - after.size(), ' ');
        return text + after;
    }
};

void PrintTo(const FullFile& file, std::ostream* out) { *out << file.name; }

class FullPropertyList : public testing::TestWithParam<FullFile> {};

TEST_P(FullPropertyList, TakesNoMoreThanAGibibyte) {
    if (!isMemoryOurs)
        GTEST_SKIP() << "a sanitizer uses memory of its own";
    const auto text = GetParam().text();
    EXPECT_LT(peakMemory([&] { readPropertyList(text); }), 1024) << "MiB";
}

const std::string windows = "<?xml version=\"1.0\" encoding=\"windows-1252\"?>";
const std::string ascii(4096, 'a');
const std::string euros(4096, '\x80'); // each takes three bytes of UTF-8

INSTANTIATE_TEST_SUITE_P(
    Texts, FullPropertyList,
    testing::Values(FullFile{"string", "", 1, "<string>", ascii, "</string>"},
                    FullFile{"string with a mark", "", 1, "<string>\uFEFF", ascii, "</string>"},
                    FullFile{"section", "", 86, "<string><![CDATA[", ascii, "]]></string>"},
                    FullFile{"sections", "", 86, "<string>", "<![CDATA[" + ascii + "]]>",
                             "</string>"},
                    FullFile{"transcoded string", windows, 129, "<string>", ascii, "</string>"},
                    FullFile{"widened string", windows, 225, "<string>", euros, "</string>"},
                    FullFile{"data", "", 0, "<data>", ascii, "</data>"}));

INSTANTIATE_TEST_SUITE_P(TooLong, FullPropertyList,
                         testing::Values(FullFile{"section", "", 0, "<string><![CDATA[", ascii,
                                                  "]]></string>"},
                                         FullFile{"widened section", windows, 0,
                                                  "<string><![CDATA[", euros, "]]></string>"}));

INSTANTIATE_TEST_SUITE_P(Values, FullPropertyList,
                         testing::Values(FullFile{"strings", "", 0, "<array>", "<string>a</string>",
                                                  "</array>"},
                                         FullFile{"dictionaries", "", 0, "<array>",
                                                  "<dict><key>a</key><true/></dict>", "</array>"},
                                         FullFile{"keys and strings", "", 0, "<dict>",
                                                  "<key>#</key><string>a</string>", "</dict>"}));

} // namespace
