#include "timecode/frame_count.h"

#include <gtest/gtest.h>

#include <array>

using namespace vexa;

namespace {

std::uint64_t packed(const char* text) { return pack(timecodeFromText(text).value()); }

std::optional<std::uint64_t> frames(const char* now, const char* stop, std::uint64_t rate) {
    return framesUntil(packed(now), packed(stop), frameRateForCode(rate));
}

TEST(FramesUntil, CountsByTheRate) {
    EXPECT_EQ(frames("01:00:00:00", "01:10:00:00", rate::fps24), 14'400u);
    EXPECT_EQ(frames("01:00:00:00", "01:10:00:00", rate::fps25), 15'000u);
    EXPECT_EQ(frames("01:00:00:00", "01:10:00:00", rate::fps30), 18'000u);
    EXPECT_EQ(frames("01:00:00:00", "01:10:00:00", rate::fps30Drop), 17'982u);
    EXPECT_EQ(frames("00:00:00:00", "23:59:59:29", rate::fps30Drop), 2'589'407u);
}

TEST(FramesUntil, DroppedNumbersAreNotCounted) {
    EXPECT_EQ(frames("00:00:59:29", "00:01:00:02", rate::fps30Drop), 1u);
    EXPECT_EQ(frames("00:00:59:28", "00:01:00:02", rate::fps30Drop), 2u);
    EXPECT_EQ(frames("00:00:59:28", "00:01:00:00", rate::fps30Drop), 2u) << "a dropped stop time";
    EXPECT_EQ(frames("00:00:59:28", "00:01:00:01", rate::fps30Drop), 2u) << "a dropped stop time";
    EXPECT_EQ(frames("00:09:59:28", "00:10:00:00", rate::fps30Drop), 2u);
}

TEST(FramesUntil, AStopThatIsPassedAlreadyComesWithTheFirstFrame) {
    EXPECT_EQ(frames("02:00:00:00", "01:00:00:00", rate::fps25), 1u);
    EXPECT_EQ(frames("02:00:00:00", "02:00:00:00", rate::fps25), 1u);
    EXPECT_EQ(frames("23:59:50:00", "00:00:10:00", rate::fps25), 1u);
}

TEST(FramesUntil, OnlyTheLastFrameOfTheDayIsFollowedByAnEarlierTime) {
    EXPECT_EQ(frames("23:59:59:24", "00:00:10:00", rate::fps25), 251u);
    EXPECT_EQ(frames("23:59:59:24", "23:59:59:24", rate::fps25), 24u * 3600 * 25);
    EXPECT_EQ(frames("23:59:59:29", "00:00:00:00", rate::fps30Drop), 1u);
}

TEST(FramesUntil, ATimeThatNoClockReachesIsNotCounted) {
    EXPECT_EQ(frames("01:00:00:00", "24:00:00:00", rate::fps25), std::nullopt);
    EXPECT_EQ(frames("01:00:00:00", "23:59:59:25", rate::fps25), std::nullopt);
    EXPECT_EQ(frames("01:00:00:00", "23:59:60:00", rate::fps25), std::nullopt);
    EXPECT_EQ(framesUntil(0, UINT64_C(1) << 32, frameRateForCode(rate::fps25)), std::nullopt);
    EXPECT_EQ(frames("01:75:00:00", "03:00:00:00", rate::fps25), std::nullopt);
}

TEST(FramesUntil, FramesBeyondTheRateCarryWithTheFirst) {
    EXPECT_EQ(frames("01:00:00:27", "01:00:02:00", rate::fps24), 21u) << "01:00:01:04 comes next";
    EXPECT_EQ(framesUntil((UINT64_C(5) << 32) + packed("01:00:00:00"), packed("01:00:01:00"),
                          frameRateForCode(rate::fps25)),
              25u)
        << "a clock time above 32 bits is truncated";
}

/// Compares with the clock itself, between times of every kind.
TEST(FramesUntil, IsWhatTheClockCounts) {
    constexpr std::array times{"00:00:00:00", "00:00:59:20", "00:01:00:00", "00:01:00:01",
                               "00:01:00:02", "00:01:00:27", "00:01:00:99", "00:01:60:00",
                               "00:01:75:12", "00:02:00:00", "00:09:59:29", "00:10:00:00",
                               "00:10:00:01", "00:11:00:00"};
    for (const auto& rate : frameRates) {
        for (const auto* from : times) {
            for (const auto* to : times) {
                const auto now = static_cast<PackedTimecode>(packed(from));
                const auto counted = framesUntil(now, packed(to), rate);
                if (!counted)
                    continue;
                auto clock = now;
                std::uint64_t steps = 0;
                do {
                    clock = advanced(clock, 1, rate);
                    ++steps;
                } while (clock < packed(to));
                EXPECT_EQ(*counted, steps) << from << " to " << to << " at " << rate.name;
            }
        }
    }
}

} // namespace
