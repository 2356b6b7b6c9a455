#pragma once

#include <cstddef>
#include <string_view>

namespace vexa {

/// The longest prefix of a UTF-8 text that fits into that many bytes, in whole characters.
constexpr std::string_view utf8Prefix(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes)
        return text;
    const auto isWithinCharacter = [&] {
        return (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80;
    };
    while (bytes > 0 && isWithinCharacter())
        --bytes;
    return text.substr(0, bytes);
}

} // namespace vexa
