#pragma once

namespace vexa {

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
