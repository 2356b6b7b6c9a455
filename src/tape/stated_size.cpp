#include "tape/stated_size.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <span>
#include <string_view>

namespace vexa {

namespace {

/// Where a format states its size.
struct Place {
    std::string_view name; ///< the first four bytes
    std::size_t begin;
    std::size_t length;
    std::endian order;
    std::uint64_t before; ///< bytes that are not counted
};

constexpr std::array places{
    Place{"RIFF", 4, 4, std::endian::little, 8},
    Place{"RF64", 20, 8, std::endian::little, 8},
    Place{"FORM", 4, 4, std::endian::big, 8},
    Place{"riff", 16, 8, std::endian::little, 0},
};

std::uint64_t number(std::span<const unsigned char> bytes, std::endian order) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        value = value << 8 | bytes[order == std::endian::big ? i : bytes.size() - 1 - i];
    return value;
}

/// Whether it stands for an unknown length. Recorders that cannot go back to the header write
/// about the largest number of 31 or 32 bits there.
bool isPlaceholder(std::uint64_t size) {
    constexpr std::uint64_t near = 0x1000;
    constexpr std::uint64_t of31Bits = 0x80000000;
    constexpr std::uint64_t of32Bits = 0x100000000;
    return (size >= of31Bits - near && size < of31Bits + near) ||
           (size >= of32Bits - near && size < of32Bits);
}

} // namespace

std::optional<std::uint64_t> statedSize(int file) {
    std::array<unsigned char, 28> head{};
    if (pread(file, head.data(), head.size(), 0) != static_cast<ssize_t>(head.size()))
        return {};
    const auto* const place = std::ranges::find_if(places, [&](const Place& each) {
        return std::ranges::equal(each.name, std::span(head).first<4>());
    });
    if (place == places.end())
        return {};
    const auto size = number(std::span(head).subspan(place->begin, place->length), place->order);
    return isPlaceholder(size) ? std::nullopt : std::optional(size + place->before);
}

} // namespace vexa
