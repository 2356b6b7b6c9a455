#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <vector>

namespace vexa {

/// Passes values from one thread to another; neither waits nor allocates.
template<typename Value>
class RealTimeQueue {
public:
    explicit RealTimeQueue(std::size_t capacity) : m_values(capacity) {}

    /// Returns false if the queue is full.
    bool push(const Value& value) {
        const auto pushed = m_pushed.load(std::memory_order_relaxed);
        if (pushed - m_popped.load(std::memory_order_acquire) == m_values.size())
            return false;
        m_values[pushed % m_values.size()] = value;
        m_pushed.store(pushed + 1, std::memory_order_release);
        return true;
    }

    std::optional<Value> pop() {
        const auto popped = m_popped.load(std::memory_order_relaxed);
        if (popped == m_pushed.load(std::memory_order_acquire))
            return std::nullopt;
        const auto value = m_values[popped % m_values.size()];
        m_popped.store(popped + 1, std::memory_order_release);
        return value;
    }

private:
    std::vector<Value> m_values;
    std::atomic<std::size_t> m_pushed = 0;
    std::atomic<std::size_t> m_popped = 0;
};

} // namespace vexa
