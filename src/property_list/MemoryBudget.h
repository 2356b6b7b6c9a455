#pragma once

#include <cstddef>

namespace vexa {

/// How much memory one property list may still take while it is read. A file of a few hundred
/// bytes can name the same object again and again and so unfold to gigabytes; every value
/// therefore pays each time it is referred to, before anything is allocated for it.
class MemoryBudget {
public:
    /// Pays for a number of values and the bytes of their text. False if that is more than is
    /// left; the reading then has to be given up.
    [[nodiscard]] bool take(std::size_t values, std::size_t textBytes = 0) {
        if (values > m_left / valueBytes || textBytes > m_left - values * valueBytes)
            return false;
        m_left -= values * valueBytes + textBytes;
        return true;
    }

private:
    static constexpr std::size_t valueBytes = 64; // with its key, and its share of spare room
    std::size_t m_left = std::size_t{512} << 20;
};

} // namespace vexa
