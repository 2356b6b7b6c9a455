#pragma once

#include <cstddef>

namespace vexa {

/// How much memory reading one property list may still take, including everything made from it. A
/// file of a few hundred bytes can refer to the same object so often that it unfolds to gigabytes.
/// So every reference to a value is charged before any allocation for it. False means the budget is
/// exhausted and reading must stop.
class MemoryBudget {
public:
    /// Values, with their slots in arrays and dictionaries.
    [[nodiscard]] bool takeValues(std::size_t count) {
        return count <= m_left / valueBytes && takeBytes(count * valueBytes);
    }
    /// A memory block for text or data.
    [[nodiscard]] bool takeText(std::size_t bytes) {
        return takeBytes(bytes) && takeBytes(textOverhead);
    }
    /// A dictionary key without its text.
    [[nodiscard]] bool takeKey() { return takeBytes(valueBytes) && takeText(0); }
    [[nodiscard]] bool takeBytes(std::size_t bytes) {
        const bool enough = bytes <= m_left;
        m_left -= enough ? bytes : 0;
        return enough;
    }

private:
    static constexpr std::size_t valueBytes = 64;   // with a box, and its share of spare capacity
    static constexpr std::size_t textOverhead = 32; // of the allocator and of Qt
    std::size_t m_left = std::size_t{512} << 20;
};

} // namespace vexa
