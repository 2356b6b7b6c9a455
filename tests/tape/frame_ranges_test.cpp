#include "tape/frame_ranges.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace vexa;

namespace {

TEST(FrameRange, OverlapsWithAnother) {
    EXPECT_EQ(overlap({2, 8}, {5, 12}).size(), 3U);
    EXPECT_EQ(overlap({2, 5}, {5, 12}).size(), 0U);
    EXPECT_EQ(overlap({2, 5}, {9, 12}).size(), 0U);
}

TEST(FrameRanges, CountLikeASetOfNumbers) {
    std::mt19937 random(1);
    const auto number = [&random] { return std::uint64_t{random() % 50}; };
    for (int round = 0; round < 200; ++round) {
        FrameRanges ranges;
        std::set<std::uint64_t> numbers;
        for (int i = 0; i < 8; ++i) {
            const FrameRange range{number(), number()};
            ranges.add(range);
            for (auto n = range.begin; n < range.end; ++n)
                numbers.insert(n);
            const auto begin = number();
            const FrameRange asked{begin, begin + number()};
            std::uint64_t expected = 0;
            for (auto n = asked.begin; n < asked.end; ++n)
                expected += numbers.count(n);
            ASSERT_EQ(ranges.count(asked), expected);
        }
    }
}

} // namespace
