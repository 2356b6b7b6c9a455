#include "timecode/frame_number.h"

#include <gtest/gtest.h>

namespace vexa {
namespace {

TEST(FrameNumber, CountsEveryFrameOfTheDayOnceAtEveryRate) {
    for (const auto& rate : frameRates) {
        Timecode time;
        std::uint64_t number = 0;
        do {
            ASSERT_EQ(frameNumber(time, rate), number) << timecodeText(time) << ' ' << rate.name;
            ASSERT_EQ(timeOfFrame(number, rate), time) << number << ' ' << rate.name;
            time = advanced(time, 1, rate);
            ++number;
        } while (time != Timecode{});
        EXPECT_EQ(number, framesADay(rate)) << rate.name;
    }
}

TEST(FrameNumber, ADayOfDropFrameLacks108FramesAnHour) {
    EXPECT_EQ(framesADay(frameRateForCode(rate::fps30Drop)), 24U * (3600 * 30 - 108));
    EXPECT_EQ(framesADay(frameRateForCode(rate::fps24)), 24U * 3600 * 24);
}

TEST(FrameNumber, ANumberThatIsLeftOutStandsForTheFrameAfterIt) {
    const auto& drop = frameRateForCode(rate::fps30Drop);
    EXPECT_EQ(frameNumber({0, 1, 0, 2}, drop), 1800U);
    EXPECT_EQ(frameNumber({0, 1, 0, 0}, drop), 1800U);
    EXPECT_EQ(frameNumber({0, 1, 0, 1}, drop), 1800U);
    EXPECT_EQ(frameNumber({0, 1, 0, 0}, frameRateForCode(rate::fps30)), 1800U);
}

TEST(FrameNumber, GoesOnInTheNextDay) {
    for (const auto& rate : frameRates)
        EXPECT_EQ(timeOfFrame(framesADay(rate) + 7, rate), (Timecode{0, 0, 0, 7}));
}

} // namespace
} // namespace vexa
