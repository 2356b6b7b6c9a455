#pragma once

#include <cstddef>

namespace vexa {

/// How much memory the reading of one property list may still take, with all that is made of it.
/// A file of a few hundred bytes can name the same object again and again and so unfold to
/// gigabytes; every value therefore pays each time it is referred to, before anything is allocated
/// for it. False means that there is not enough left; the reading then has to be given up.
class MemoryBudget {
public:
    /// Values with their places in arrays and dictionaries.
    [[nodiscard]] bool takeValues(std::size_t count) {
        return count <= m_left / valueBytes && takeBytes(count * valueBytes);
    }
    /// A block of memory for text or data.
    [[nodiscard]] bool takeText(std::size_t bytes) {
        return takeBytes(bytes) && takeBytes(textOverhead);
    }
    /// A key of a dictionary; its text is apart.
    [[nodiscard]] bool takeKey() { return takeBytes(valueBytes) && takeText(0); }
    [[nodiscard]] bool takeBytes(std::size_t bytes) {
        const bool enough = bytes <= m_left;
        m_left -= enough ? bytes : 0;
        return enough;
    }

private:
    static constexpr std::size_t valueBytes = 64;   // with a box, and its share of spare room
    static constexpr std::size_t textOverhead = 32; // of the allocator and of Qt
    std::size_t m_left = std::size_t{512} << 20;
};

} // namespace vexa
