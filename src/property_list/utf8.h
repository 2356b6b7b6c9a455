#pragma once

#include <QString>
#include <QStringDecoder>

#include <string_view>

namespace vexa {

/// The text of valid UTF-8. Unlike QString's own conversion, keeps a leading U+FEFF, which is a
/// byte-order mark only at the start of a file.
inline QString stringFromUtf8(std::string_view utf8) {
    if (!utf8.starts_with("\uFEFF"))
        return QString::fromUtf8(utf8); // twice as fast
    return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(utf8);
}

/// Writes one character as UTF-8, in one to four bytes, and returns the end.
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
