#include "interchange/text_encoding.h"

#include <QStringConverter>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace vexa {

namespace {

/// Windows-1252 from 0x80 to 0x9F; its other characters equal Latin-1. The five unassigned codes
/// stay control characters.
constexpr std::array<char16_t, 0x20> windows1252{
    u'\u20AC', 0x81,      u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', 0x8D,      u'\u017D', 0x8F,
    0x90,      u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', 0x9D,      u'\u017E', u'\u0178'};

QString textOfWindows1252(const QByteArray& bytes) {
    auto text = QString::fromLatin1(bytes);
    std::ranges::transform(text, text.begin(), [](QChar letter) {
        const auto place = static_cast<std::size_t>(letter.unicode()) - 0x80;
        return place < windows1252.size() ? QChar(windows1252[place]) : letter;
    });
    return text;
}

/// Detects UTF-16 without a mark: in Latin text, one byte of each pair is zero.
std::optional<QStringConverter::Encoding> encodingByZeros(const QByteArray& bytes) {
    constexpr qsizetype sample = 1024;
    std::array<qsizetype, 2> zeros{};
    const auto length = std::min(bytes.size(), sample) / 2 * 2;
    for (qsizetype i = 0; i < length; ++i)
        zeros[static_cast<std::size_t>(i % 2)] += bytes[i] == '\0' ? 1 : 0;
    const auto [high, low] = zeros;
    if (std::max(high, low) <= length / 4)
        return {};
    return high > low ? QStringConverter::Utf16BE : QStringConverter::Utf16LE;
}

} // namespace

QString decodedText(const QByteArray& bytes) {
    const auto marked = QStringConverter::encodingForData(bytes);
    const auto encoding = marked ? marked : encodingByZeros(bytes);
    // Stateless, so that a truncated character counts as an error.
    QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8),
                           QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    return encoding || !decoder.hasError() ? text : textOfWindows1252(bytes);
}

} // namespace vexa
