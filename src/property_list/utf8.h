#pragma once

#include <QString>
#include <QStringDecoder>

#include <string_view>

namespace vexa {

/// The text of valid UTF-8. Unlike QString's own conversion it keeps a U+FEFF at the start, which
/// is a byte-order mark at the start of a file only.
inline QString stringFromUtf8(std::string_view utf8) {
    if (!utf8.starts_with("\uFEFF"))
        return QString::fromUtf8(utf8); // in half the time
    return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(utf8);
}

/// Writes one character as UTF-8 and returns the end of it, at most four bytes on.
inline char* writeUtf8(char32_t character, char* out) {
    const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | character >> 18);
        put(0x80 | (character >> 12 & 0x3F));
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    }
    return out;
}

} // namespace vexa
