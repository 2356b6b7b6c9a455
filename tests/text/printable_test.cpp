#include "text/printable.h"

#include <QChar>
#include <QString>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

struct Case {
    std::string_view text;
    std::string_view shown;
};

class Printable : public testing::TestWithParam<Case> {};

TEST_P(Printable, EscapesWhatATerminalWouldObey) {
    EXPECT_EQ(printable(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Printable,
    testing::Values(Case{"", ""}, Case{"Tape 12, Take \"3\"", "Tape 12, Take \"3\""},
                    Case{"Tonhöhe 録音 🎬", "Tonhöhe 録音 🎬"}, Case{"C:\\Reels", "C:\\Reels"},
                    Case{"\x1B]0;title\a", R"(\x1B]0;title\x07)"},
                    Case{"one\ntwo\r\tthree", R"(one\x0Atwo\x0D\x09three)"},
                    Case{std::string_view("a\0b", 3), R"(a\x00b)"}, Case{"\x7F", R"(\x7F)"},
                    Case{"\xC2\x9B"
                         "2J",
                         R"(\u009B2J)"},
                    Case{"a\u202Eb\u2069", R"(a\u202Eb\u2069)"},
                    Case{"a\u2028b\u2029c", R"(a\u2028b\u2029c)"},
                    Case{"\uFEFFname", R"(\uFEFFname)"}, Case{"\U000E0041", R"(\U000E0041)"}));

INSTANTIATE_TEST_SUITE_P(
    NotUtf8, Printable,
    testing::Values(Case{"a\x9B"
                         "b",
                         R"(a\x9Bb)"}, // an 8-bit terminal reads it as ESC [
                    Case{"\xFF\xFE", R"(\xFF\xFE)"}, Case{"\xC3", R"(\xC3)"},
                    Case{"\xC3(", R"(\xC3()"}, Case{"\xE2\x80", R"(\xE2\x80)"},
                    Case{"\xF0\x9F\x8E", R"(\xF0\x9F\x8E)"},
                    Case{"\xC0\x9B", R"(\xC0\x9B)"}, // an overlong ESC
                    Case{"\xE0\x80\x9B", R"(\xE0\x80\x9B)"},
                    Case{"\xED\xA0\x80", R"(\xED\xA0\x80)"},         // a lone surrogate
                    Case{"\xF4\x90\x80\x80", R"(\xF4\x90\x80\x80)"}, // beyond the last character
                    Case{"\xF8\x88\x80\x80\x80", R"(\xF8\x88\x80\x80\x80)"}));

TEST(PrintableCharacters, AreThoseOfAllCategoriesButFour) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        const auto category = QChar::category(code);
        if (category == QChar::Other_Surrogate || category == QChar::Other_NotAssigned)
            continue;
        const bool isEscaped =
            category == QChar::Other_Control || category == QChar::Other_Format ||
            category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
        const char32_t characters[] = {U'a', code}; // Qt drops a leading byte-order mark
        const auto text = QString::fromUcs4(characters, 2).toStdString();
        ASSERT_EQ(printable(text) != text, isEscaped) << std::hex << std::uint32_t{code};
    }
}

} // namespace
