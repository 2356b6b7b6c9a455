#pragma once

#include "generator/report.h"

#include <atomic>
#include <vector>

namespace vexa {

/// Reports on their way from one thread to another; neither waits for the other.
class ReportQueue {
public:
    /// False where there is no room.
    bool push(const Report& report) {
        const auto pushed = m_pushed.load(std::memory_order_relaxed);
        if (pushed - m_popped.load(std::memory_order_acquire) == m_reports.size())
            return false;
        m_reports[pushed % m_reports.size()] = report;
        m_pushed.store(pushed + 1, std::memory_order_release);
        return true;
    }

    std::optional<Report> pop() {
        const auto popped = m_popped.load(std::memory_order_relaxed);
        if (popped == m_pushed.load(std::memory_order_acquire))
            return std::nullopt;
        const auto report = m_reports[popped % m_reports.size()];
        m_popped.store(popped + 1, std::memory_order_release);
        return report;
    }

private:
    std::vector<Report> m_reports = std::vector<Report>(1024);
    std::atomic<std::size_t> m_pushed = 0;
    std::atomic<std::size_t> m_popped = 0;
};

} // namespace vexa
