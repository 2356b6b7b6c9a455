#pragma once

#include "property_list/PropertyListKey.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace vexa {

/// Lets dictionaries with the same keys share the text of those keys. A small fixed table, which
/// keeps the latest key in each slot, is enough. No input can make it grow or slow down.
class KeyCache {
public:
    /// The key that a file spells as `source`: the cached one, or the result of make(source), which
    /// may be nothing. The bytes of `source` must outlive the cache.
    template<typename Make>
    std::optional<PropertyListKey> key(std::string_view source, Make make) {
        auto& slot = m_slots[hash(source) % m_slots.size()];
        if (slot && slot->source == source)
            return slot->key;
        auto made = make(source);
        if (made)
            slot = Known{source, *made};
        return made;
    }

private:
    struct Known {
        std::string_view source;
        PropertyListKey key;
    };

    static std::size_t hash(std::string_view source) {
        std::size_t sum = source.size();
        for (const char c : source.substr(0, 64))
            sum = sum * 31 + static_cast<unsigned char>(c);
        return sum;
    }

    std::array<std::optional<Known>, 256> m_slots;
};

} // namespace vexa
