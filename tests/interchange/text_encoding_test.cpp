#include "interchange/text_encoding.h"

#include <QStringEncoder>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

QByteArray encoded(const QString& text, QStringConverter::Encoding encoding, bool marked) {
    QStringEncoder encode(encoding, marked ? QStringConverter::Flag::WriteBom
                                           : QStringConverter::Flag::Default);
    return encode(text);
}

class Encoding : public testing::TestWithParam<std::pair<QStringConverter::Encoding, bool>> {};

TEST_P(Encoding, IsFound) {
    const auto [encoding, marked] = GetParam();
    const auto text = u"Reel\tTitle\n1\tБобина 1 日本 é\n"_s;
    EXPECT_EQ(decodedText(encoded(text, encoding, marked)), text);
}

INSTANTIATE_TEST_SUITE_P(All, Encoding,
                         testing::Values(std::pair{QStringConverter::Utf8, false},
                                         std::pair{QStringConverter::Utf8, true},
                                         std::pair{QStringConverter::Utf16LE, false},
                                         std::pair{QStringConverter::Utf16LE, true},
                                         std::pair{QStringConverter::Utf16BE, false},
                                         std::pair{QStringConverter::Utf16BE, true}));

TEST(Windows1252, IsTakenForWhatIsNotUtf8) {
    EXPECT_EQ(decodedText("Caf\xE9 \x80 \x93quoted\x94 \x96 \x9F"), u"Café € “quoted” – Ÿ"_s);
}

TEST(Windows1252, HasACharacterForEachByte) {
    QByteArray bytes("a");
    for (int byte = 0x80; byte < 0x100; ++byte)
        bytes += static_cast<char>(byte);
    const auto text = decodedText(bytes);
    EXPECT_EQ(text.size(), bytes.size());
    EXPECT_FALSE(text.contains(QChar(QChar::ReplacementCharacter)));
}

TEST(DecodedText, IsEmptyForNoBytes) { EXPECT_TRUE(decodedText({}).isEmpty()); }

} // namespace
