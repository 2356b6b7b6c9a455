#include "ltc_tool/figures.h"

#include <gtest/gtest.h>

namespace vexa::ltc_tool {
namespace {

TEST(Figures, PlacesAreTimes) {
    EXPECT_EQ(placeText(0, 48000), "0:00:00.000");
    EXPECT_EQ(placeText(-3, 48000), "0:00:00.000");
    EXPECT_EQ(placeText(48000.0 * 3723 + 21888, 48000), "1:02:03.456");
    EXPECT_EQ(placeText(44100.0 * 360000, 44100), "100:00:00.000");
}

TEST(Figures, LevelsAreInDecibels) {
    EXPECT_EQ(levelText(1), "0.0");
    EXPECT_EQ(levelText(0.12589), "-18.0");
}

TEST(Figures, SpeedsAreInPercent) {
    EXPECT_EQ(percentText(0.01), "+1.000");
    EXPECT_EQ(percentText(-0.000999), "-0.100");
    EXPECT_EQ(percentText(-1e-9), "+0.000");
}

TEST(Figures, UserBitsAreDigits) { EXPECT_EQ(userBitsText(0x12), "00000012"); }

} // namespace
} // namespace vexa::ltc_tool
