#include "text/printable.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace vexa {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Unicode categories Cc, Cf, Zl and Zp, in ascending order.
constexpr std::array escapedRanges{
    Range{0x0000, 0x001F},   Range{0x007F, 0x009F},   Range{0x00AD, 0x00AD},
    Range{0x0600, 0x0605},   Range{0x061C, 0x061C},   Range{0x06DD, 0x06DD},
    Range{0x070F, 0x070F},   Range{0x0890, 0x0891},   Range{0x08E2, 0x08E2},
    Range{0x180E, 0x180E},   Range{0x200B, 0x200F},   Range{0x2028, 0x202E},
    Range{0x2060, 0x206F},   Range{0xFEFF, 0xFEFF},   Range{0xFFF9, 0xFFFB},
    Range{0x110BD, 0x110BD}, Range{0x110CD, 0x110CD}, Range{0x13430, 0x1343F},
    Range{0x1BCA0, 0x1BCA3}, Range{0x1D173, 0x1D17A}, Range{0xE0000, 0xE007F},
};

bool isEscaped(char32_t character) {
    const auto range = std::ranges::lower_bound(escapedRanges, character, {}, &Range::last);
    return range != escapedRanges.end() && range->first <= character;
}

struct Character {
    char32_t code = 0;
    std::size_t length = 0; ///< in bytes; 0 if the bytes are not UTF-8
};

/// The first character of a text that is not empty.
Character firstCharacter(std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const auto leadingOnes = static_cast<std::size_t>(std::countl_one(byteAt(0)));
    const auto length = std::max<std::size_t>(leadingOnes, 1);
    if (leadingOnes == 1 || length > 4 || length > text.size())
        return {};
    char32_t code = byteAt(0) & (0xFFu >> leadingOnes);
    for (std::size_t i = 1; i < length; ++i) {
        if (std::countl_one(byteAt(i)) != 1)
            return {};
        code = code << 6 | (byteAt(i) & 0x3Fu);
    }
    // Rejects overlong encodings and surrogates.
    constexpr std::array<char32_t, 5> lowest{0, 0, 0x80, 0x800, 0x10000};
    const bool isValid =
        code >= lowest[length] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return isValid ? Character{code, length} : Character{};
}

std::string escape(char kind, int digits, char32_t value) {
    std::string text{'\\', kind};
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += "0123456789ABCDEF"[value >> shift & 0xF];
    return text;
}

std::string escape(char32_t code) {
    if (code < 0x80)
        return escape('x', 2, code);
    return code < 0x10000 ? escape('u', 4, code) : escape('U', 8, code);
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto [code, length] = firstCharacter(text);
        const auto taken = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0)
            result += escape('x', 2, static_cast<std::uint8_t>(taken.front()));
        else if (isEscaped(code))
            result += escape(code);
        else
            result += taken;
        text.remove_prefix(taken.size());
    }
    return result;
}

} // namespace vexa
