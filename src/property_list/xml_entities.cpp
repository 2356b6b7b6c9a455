#include "property_list/xml_entities.h"

#include "property_list/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace vexa::xml {
namespace {

constexpr std::array<std::pair<std::string_view, char>, 5> entities{
    {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}}};

/// Decodes the text between & and ;.
std::optional<char32_t> character(std::string_view reference) {
    if (!reference.starts_with('#')) {
        const auto* const entity =
            std::ranges::find(entities, reference, &std::pair<std::string_view, char>::first);
        return entity == entities.end() ? std::nullopt
                                        : std::optional(static_cast<char32_t>(entity->second));
    }
    const bool hexadecimal = reference.starts_with("#x");
    reference.remove_prefix(hexadecimal ? 2 : 1);
    std::uint32_t number = 0;
    const auto* const end = reference.data() + reference.size();
    const auto [last, error] =
        std::from_chars(reference.data(), end, number, hexadecimal ? 16 : 10);
    const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
    if (error != std::errc() || last != end || surrogate || number > 0x10FFFF)
        return std::nullopt;
    return number;
}

} // namespace

bool appendUnescaped(std::string_view text, std::string& to) {
    while (!text.empty()) {
        const auto plain = text.substr(0, text.find('&'));
        to += plain;
        text.remove_prefix(plain.size());
        if (text.empty())
            break;
        const auto end = text.find(';');
        const auto found =
            end == std::string_view::npos ? std::nullopt : character(text.substr(1, end - 1));
        if (!found)
            return false;
        std::array<char, 4> utf8{};
        to.append(utf8.data(), writeUtf8(*found, utf8.data()));
        text.remove_prefix(end + 1);
    }
    return true;
}

} // namespace vexa::xml
