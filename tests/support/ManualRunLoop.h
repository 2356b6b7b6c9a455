#pragma once

#include "stripe/RunLoop.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vexa::test {

/// A run loop whose time advances only by hand.
class ManualRunLoop final : public RunLoop {
public:
    std::unique_ptr<RunLoopTimer> scheduleTimer(Seconds interval, bool repeats,
                                                std::function<void()> action) override {
        auto entry = std::make_shared<Entry>();
        entry->interval = std::max(interval, Seconds{0});
        entry->due = m_now + entry->interval;
        entry->repeats = repeats;
        entry->action = std::move(action);
        m_entries.push_back(entry);
        return std::make_unique<Timer>(*this, entry);
    }

    /// Advances the time and fires the timers that fall due, in order.
    void advance(Seconds time) {
        constexpr Seconds rounding{1e-9};
        const auto end = m_now + time;
        while (const auto next = nextDueBy(end + rounding)) {
            m_now = std::max(m_now, next->due);
            fire(*next);
        }
        m_now = std::max(m_now, end);
    }

    Seconds now() const { return m_now; }

    /// Fires the timer with that interval once, whatever the time.
    void fireTimerOf(Seconds interval) {
        for (const auto& entry : live())
            if (std::abs((entry->interval - interval).count()) < 1e-12)
                return fire(*entry);
    }

    std::vector<Seconds> liveIntervals() {
        std::vector<Seconds> intervals;
        for (const auto& entry : live())
            intervals.push_back(entry->interval);
        return intervals;
    }

private:
    struct Entry {
        Seconds interval{};
        Seconds due{};
        bool repeats = false;
        bool valid = true;
        std::function<void()> action;
    };
    using EntryRef = std::shared_ptr<Entry>;

    class Timer final : public RunLoopTimer {
    public:
        Timer(const ManualRunLoop& runLoop, EntryRef entry)
            : m_runLoop(runLoop), m_entry(std::move(entry)) {}
        ~Timer() override { m_entry->valid = false; }
        bool isValid() const override { return m_entry->valid; }
        void invalidate() override { m_entry->valid = false; }
        Seconds timeLeft() const override {
            return isValid() ? std::max(m_entry->due - m_runLoop.m_now, Seconds{0}) : Seconds{0};
        }

    private:
        const ManualRunLoop& m_runLoop;
        EntryRef m_entry;
    };

    std::vector<EntryRef> live() {
        std::erase_if(m_entries, [](const auto& entry) { return !entry->valid; });
        return m_entries;
    }

    EntryRef nextDueBy(Seconds end) {
        EntryRef next;
        for (const auto& entry : live())
            if (entry->due <= end && (!next || entry->due < next->due))
                next = entry;
        return next;
    }

    static void fire(Entry& entry) {
        entry.due += entry.interval;
        entry.valid = entry.repeats;
        const auto action = entry.action;
        action();
    }

    Seconds m_now{0};
    std::vector<EntryRef> m_entries;
};

} // namespace vexa::test
