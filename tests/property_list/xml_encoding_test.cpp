#include "property_list/xml_encoding.h"

#include <QStringEncoder>
#include <gtest/gtest.h>

#include <ostream>

using namespace vexa;

void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << bytes.toPercentEncoding().data();
}

namespace {

std::optional<QByteArray> utf8FromXml(QByteArrayView file) {
    MemoryBudget budget;
    return utf8FromXml(file, budget);
}

QByteArray declaring(const char* encoding, const char* text) {
    return QByteArray("<?xml version='1.0' encoding='") + encoding + "'?>" + text;
}

QByteArray marked(QStringConverter::Encoding encoding, const QByteArray& utf8) {
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(QString::fromUtf8(utf8));
}

constexpr QStringConverter::Encoding unicode[] = {
    QStringConverter::Utf8,    QStringConverter::Utf16LE, QStringConverter::Utf16BE,
    QStringConverter::Utf32LE, QStringConverter::Utf32BE,
};

TEST(XmlEncoding, IsUtf8WhenNothingSaysOtherwise) {
    for (const char* text : {"", "<", "<a>\u00E4\U0001F600</a>", "<?xml version='1.0'?>\u00E4",
                             "<?xml encoding", "<?xml encoding?>", "<?xml encoding='ascii?>"})
        EXPECT_EQ(utf8FromXml(text), QByteArray(text));
}

TEST(XmlEncoding, IsWhatTheDeclarationNames) {
    const std::pair<const char*, const char*> rows[] = {
        {"ISO-8859-1", "\xC3\xA4\xC2\x80"},
        {"windows-1252", "\xC3\xA4\xE2\x82\xAC"},
    };
    for (const auto& [name, expected] : rows)
        EXPECT_EQ(utf8FromXml(declaring(name, "\xE4\x80")), declaring(name, expected));
    EXPECT_EQ(utf8FromXml(declaring("utf-8", "\u00E4")), declaring("utf-8", "\u00E4"));
    EXPECT_EQ(utf8FromXml("<?xml encoding = \"latin1\" ?>\xE4"),
              QByteArray("<?xml encoding = \"latin1\" ?>\u00E4"));
}

TEST(XmlEncoding, IsWhatTheByteOrderMarkSaysWhateverIsDeclared) {
    for (const auto encoding : unicode)
        for (const char* declared : {"UTF-8", "UTF-16", "ISO-8859-1", "no-such-encoding"}) {
            const auto text = declaring(declared, "\u00E4\U0001F600");
            EXPECT_EQ(utf8FromXml(marked(encoding, text)), text) << encoding;
        }
}

TEST(XmlEncoding, KeepsPairsTogetherInLongTexts) {
    for (const auto encoding : unicode)
        for (const char* start : {"", "a", "ab", "abc"}) {
            const auto text = start + QByteArray("\U0001F600").repeated(100'000);
            EXPECT_EQ(utf8FromXml(marked(encoding, text)), text) << encoding;
        }
}

TEST(XmlEncoding, RefusesBytesThatAreNotValidInIt) {
    for (const char* text : {"\xFF", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                             "a\x80", "\xEF\xBB\xBF\xFF"})
        EXPECT_EQ(utf8FromXml(text), std::nullopt) << text;
    EXPECT_EQ(utf8FromXml(declaring("UTF-8", "\xE4")), std::nullopt);
    EXPECT_EQ(utf8FromXml({"\xFF\xFE\x00\xD8<\x00", 6}), std::nullopt);
    EXPECT_EQ(utf8FromXml({"\xFE\xFF\xDC\x00\x00<", 6}), std::nullopt);
    EXPECT_EQ(utf8FromXml({"\xFF\xFE\x00\x00\x00\x00\x11\x00", 8}), std::nullopt);
}

TEST(XmlEncoding, RefusesNamesItDoesNotKnow) {
    for (const char* name : {"no-such-encoding", " ", "x"})
        EXPECT_EQ(utf8FromXml(declaring(name, "a")), std::nullopt) << name;
}

} // namespace
