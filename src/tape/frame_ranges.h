#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>

namespace vexa {

/// A range of frame numbers; the end is exclusive.
struct FrameRange {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;

    std::uint64_t size() const { return end > begin ? end - begin : 0; }
    bool operator==(const FrameRange&) const = default;
};

inline FrameRange overlap(const FrameRange& a, const FrameRange& b) {
    return {std::max(a.begin, b.begin), std::min(a.end, b.end)};
}

/// A set of frame numbers.
class FrameRanges {
public:
    void add(FrameRange range) {
        if (range.size() == 0)
            return;
        auto next = m_ends.upper_bound(range.begin);
        if (next != m_ends.begin() && std::prev(next)->second >= range.begin)
            --next;
        while (next != m_ends.end() && next->first <= range.end) {
            range = {std::min(range.begin, next->first), std::max(range.end, next->second)};
            next = m_ends.erase(next);
        }
        m_ends[range.begin] = range.end;
    }

    /// The number of frames in both the range and the set.
    std::uint64_t count(const FrameRange& range) const {
        std::uint64_t frames = 0;
        auto next = m_ends.upper_bound(range.begin);
        if (next != m_ends.begin())
            --next;
        for (; next != m_ends.end() && next->first < range.end; ++next)
            frames += overlap(range, {next->first, next->second}).size();
        return frames;
    }

private:
    std::map<std::uint64_t, std::uint64_t> m_ends; ///< ends by beginnings
};

} // namespace vexa
