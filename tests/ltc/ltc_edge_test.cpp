#include "ltc/ltc_edge.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

using namespace vexa;

namespace {

/// A finely sampled edge, composed from all phases: level by seconds since the edge started.
std::map<double, float> shape(std::uint32_t sampleRate) {
    const LtcEdge edge(sampleRate);
    std::map<double, float> points;
    for (double lag = 0; lag < 1; lag += 1.0 / 1024)
        for (std::size_t i = 0; i < edge.size(); ++i)
            points[(static_cast<double>(i) + lag) / sampleRate] = edge.samples(lag)[i];
    return points;
}

double timeOf(const std::map<double, float>& shape, float level) {
    return std::find_if(shape.begin(), shape.end(),
                        [level](const auto& point) { return point.second >= level; })
        ->first;
}

class EverySampleRate : public testing::TestWithParam<std::uint32_t> {};

TEST_P(EverySampleRate, RisesWithoutOvershoot) {
    float last = -1;
    for (const auto& [time, level] : shape(GetParam())) {
        EXPECT_GE(level, last) << time;
        EXPECT_LE(level, 1.0f);
        last = level;
    }
    EXPECT_NEAR(last, 1, 1e-3);
}

TEST_P(EverySampleRate, IsSymmetric) {
    const auto points = shape(GetParam());
    const double middle = timeOf(points, 0);
    for (const auto& [time, level] : points)
        if (time < middle) {
            EXPECT_NEAR(points.lower_bound(2 * middle - time)->second, -level, 0.02) << time;
        }
}

TEST_P(EverySampleRate, NeverTouchesTheNextEdge) {
    const LtcEdge edge(GetParam());
    const double halfBit = GetParam() / 4800.0; // the shortest, at 30 frames
    EXPECT_LE(static_cast<double>(edge.size()), halfBit + 1);
    for (double lag = 0; lag <= 1; lag += 1.0 / 64)
        for (std::size_t i = 0; i < edge.size(); ++i)
            if (static_cast<double>(i) + lag >= halfBit) {
                EXPECT_EQ(edge.samples(lag)[i], 1.0f)
                    << "sample " << i << " after a lag of " << lag;
            }
}

INSTANTIATE_TEST_SUITE_P(LtcEdge, EverySampleRate,
                         testing::Values(8000, 11025, 16000, 22050, 32000, 44100, 48000, 88200,
                                         96000, 176400, 192000));

TEST(LtcEdge, TakesFortyMicrosecondsFrom10To90Percent) {
    for (const std::uint32_t sampleRate : {22050, 44100, 48000, 88200, 96000, 192000}) {
        const auto points = shape(sampleRate);
        EXPECT_NEAR(timeOf(points, 0.8f) - timeOf(points, -0.8f), 40e-6, 1e-6) << sampleRate;
    }
}

} // namespace
