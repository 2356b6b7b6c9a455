#include "text/duration_text.h"

#include <gtest/gtest.h>

#include <limits>

using vexa::durationText;
using vexa::timeLeftText;
using namespace std::chrono_literals;

namespace {

TEST(DurationText, HasHoursWhereThereAreAny) {
    EXPECT_EQ(durationText(4s), "0:04");
    EXPECT_EQ(durationText(4min + 10s), "4:10");
    EXPECT_EQ(durationText(59min + 59s), "59:59");
    EXPECT_EQ(durationText(1h), "1:00:00");
    EXPECT_EQ(durationText(1h + 2min + 33s), "1:02:33");
    EXPECT_EQ(durationText(123h + 9s), "123:00:09");
}

TEST(DurationText, IsToTheNearestSecond) {
    EXPECT_EQ(durationText(2'002ms), "0:02"); // 60 frames of drop-frame
    EXPECT_EQ(durationText(1'960ms), "0:02");
    EXPECT_EQ(durationText(59'500ms), "1:00");
}

TEST(TimeLeftText, CountsASecondThatHasBegunWhole) {
    EXPECT_EQ(timeLeftText(40ms), "0:01");
    EXPECT_EQ(timeLeftText(59'040ms), "1:00");
    EXPECT_EQ(timeLeftText(0s), "0:00");
    EXPECT_EQ(timeLeftText(-5s), "0:00");
    const std::chrono::duration<double> sum(0.1 + 0.2 + 0.7); // a little more than one
    EXPECT_EQ(timeLeftText(sum + 1ns), "0:01");
}

TEST(DurationText, TakesAnyNumber) {
    EXPECT_EQ(durationText(-5s), "0:00");
    using Limits = std::numeric_limits<double>;
    EXPECT_EQ(durationText(std::chrono::duration<double>(Limits::infinity())), "277777777:46:40");
}

} // namespace
