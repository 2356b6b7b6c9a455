#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <string_view>

namespace vexa {

/// Lets dictionaries with the same keys share the text of these keys. A few slots, each holding
/// the key that came by last, are enough for that, and cannot be made to grow or to slow down.
class KeyCache {
public:
    /// The key that a file spells as `source`: the one made of it before, or what make(source)
    /// now gives. The bytes of `source` must outlive the cache.
    template<typename Make>
    const QString& key(std::string_view source, Make make) {
        Slot& slot = m_slots[hash(source) % m_slots.size()];
        if (slot.key.isNull() || slot.source != source)
            slot = {source, make(source)};
        return slot.key;
    }

private:
    struct Slot {
        std::string_view source;
        QString key;
    };

    static std::size_t hash(std::string_view source) {
        std::size_t sum = source.size();
        for (const char c : source.substr(0, 64))
            sum = sum * 31 + static_cast<unsigned char>(c);
        return sum;
    }

    std::array<Slot, 256> m_slots;
};

} // namespace vexa
