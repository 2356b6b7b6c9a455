#include "tape/stretch_finder.h"
#include "timecode/frame_number.h"

#include <gtest/gtest.h>

#include <vector>

using namespace vexa;

namespace {

constexpr std::uint32_t sampleRate = 48000;

/// A tape with words written one after another.
class StretchFinderTest : public testing::Test {
protected:
    void words(const Timecode& first, int count, std::uint64_t code, double speed = 1) {
        const auto& rate = frameRateForCode(code);
        m_length = sampleRate * static_cast<double>(rate.seconds) /
                   static_cast<double>(rate.frames) / speed;
        auto time = first;
        for (int i = 0; i < count; ++i) {
            word(time, rate.dropFrame);
            time = advanced(time, 1, rate);
        }
    }

    void word(const Timecode& time, bool dropFrame = false) {
        m_finder.take({time, dropFrame, 0x12, m_now, m_now + m_length, 0.5F, m_isClear});
        m_now += m_length;
    }

    void silence(double samples) { m_now += samples; }

    const std::vector<Stretch>& found() {
        m_finder.finish();
        return m_stretches;
    }

    std::vector<Stretch> m_stretches;
    StretchFinder m_finder{sampleRate,
                           [this](const Stretch& stretch) { m_stretches.push_back(stretch); }};
    double m_now = 1000;
    double m_length = 1920;
    bool m_isClear = false;
};

TEST_F(StretchFinderTest, TellsTheRateByTheNumbers) {
    for (const auto& rate : frameRates) {
        m_stretches.clear();
        words({0, 0, 58, 7}, 200, rate.code);
        const auto stretch = found().at(0);
        EXPECT_EQ(stretch.rate->code, rate.code);
        EXPECT_EQ(stretch.first, (Timecode{0, 0, 58, 7}));
        EXPECT_EQ(stretch.last, timeOfFrame(frameNumber(stretch.first, rate) + 199, rate));
        EXPECT_EQ(stretch.frames, 200U);
        EXPECT_EQ(stretch.unread, 0U);
        EXPECT_NEAR(stretch.speed, 0, 1e-9);
        EXPECT_NEAR(stretch.peak, 0.5, 1e-6);
        EXPECT_EQ(stretch.userBits, 0x12U);
        silence(2 * sampleRate);
    }
}

TEST_F(StretchFinderTest, NumbersTellTheRateAlsoOfATapeThatRunsAtAnother) {
    words({1, 0, 0, 0}, 100, rate::fps24, 25.0 / 24);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].rate->code, rate::fps24);
    EXPECT_NEAR(m_stretches[0].speed, 1 / 24.0, 1e-9);
}

TEST_F(StretchFinderTest, TimeTellsTheRateWhereNoSecondEnds) {
    words({1, 0, 0, 0}, 10, rate::fps30, 1.01);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].rate->code, rate::fps30);
    EXPECT_NEAR(m_stretches[0].speed, 0.01, 1e-9);
}

TEST_F(StretchFinderTest, KnowsWhereItIs) {
    words({1, 0, 0, 0}, 50, rate::fps25);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_NEAR(m_stretches[0].begin, 1000, 1e-6);
    EXPECT_NEAR(m_stretches[0].end, 1000 + 50 * 1920, 1e-6);
}

TEST_F(StretchFinderTest, GoesOnOverMidnight) {
    words({23, 59, 59, 0}, 60, rate::fps30Drop);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].last, (Timecode{0, 0, 0, 29}));
}

TEST_F(StretchFinderTest, GoesOnThroughAHole) {
    words({1, 0, 0, 0}, 20, rate::fps25);
    silence(3 * 1920);
    words({1, 0, 0, 23}, 20, rate::fps25);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].frames, 43U);
    EXPECT_EQ(m_stretches[0].unread, 3U);
    ASSERT_EQ(m_stretches[0].holes.size(), 1U);
    EXPECT_EQ(m_stretches[0].holes[0].firstFrame, 20U);
    EXPECT_EQ(m_stretches[0].holes[0].frames, 3U);
    EXPECT_NEAR(m_stretches[0].holes[0].begin, 1000 + 20 * 1920, 1e-6);
}

TEST_F(StretchFinderTest, AClearWordAloneIsAStretch) {
    m_isClear = true;
    words({1, 0, 0, 0}, 1, rate::fps25);
    silence(0.05 * sampleRate);
    words({2, 0, 0, 0}, 2, rate::fps24);
    silence(0.05 * sampleRate);
    words({3, 0, 0, 0}, 1, rate::fps30Drop);
    ASSERT_EQ(found().size(), 3U);
    EXPECT_EQ(m_stretches[0].first, (Timecode{1, 0, 0, 0}));
    EXPECT_EQ(m_stretches[0].last, (Timecode{1, 0, 0, 0}));
    EXPECT_EQ(m_stretches[0].frames, 1U);
    EXPECT_EQ(m_stretches[0].rate->code, rate::fps25);
    EXPECT_NEAR(m_stretches[0].begin, 1000, 1e-6);
    EXPECT_NEAR(m_stretches[0].end, 1000 + 1920, 1e-6);
    EXPECT_NEAR(m_stretches[0].peak, 0.5, 1e-6);
    EXPECT_EQ(m_stretches[1].frames, 2U);
    EXPECT_EQ(m_stretches[2].rate->code, rate::fps30Drop);
}

TEST_F(StretchFinderTest, AClearWordCloseToAnotherIsNoise) {
    m_isClear = true;
    words({1, 0, 0, 0}, 10, rate::fps25);
    word({5, 0, 0, 0}); // as of two pieces, joined within a word
    words({2, 0, 0, 0}, 10, rate::fps25);
    ASSERT_EQ(found().size(), 2U);
    EXPECT_EQ(m_stretches[0].frames, 10U);
    EXPECT_EQ(m_stretches[1].first, (Timecode{2, 0, 0, 0}));
}

TEST_F(StretchFinderTest, GoesOnThroughAHoleAfterTheFirstWord) {
    m_isClear = true;
    words({1, 0, 0, 0}, 1, rate::fps25);
    silence(1920);
    words({1, 0, 0, 2}, 10, rate::fps25);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].frames, 12U);
    EXPECT_EQ(m_stretches[0].unread, 1U);
}

TEST_F(StretchFinderTest, AWordMisreadIsAHole) {
    words({1, 0, 0, 0}, 10, rate::fps25);
    word({9, 9, 9, 9});
    words({1, 0, 0, 11}, 10, rate::fps25);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].unread, 1U);
    EXPECT_EQ(m_stretches[0].last, (Timecode{1, 0, 0, 20}));
}

TEST_F(StretchFinderTest, AWrongDropFrameBitIsAMisreadWord) {
    words({1, 0, 0, 0}, 10, rate::fps30);
    word({1, 0, 0, 10}, true);
    words({1, 0, 0, 11}, 10, rate::fps30);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].unread, 1U);
}

TEST_F(StretchFinderTest, NumbersThatJumpBeginAnother) {
    words({1, 0, 0, 0}, 20, rate::fps25);
    words({1, 0, 1, 3}, 20, rate::fps25);
    words({1, 0, 1, 3}, 20, rate::fps25);
    ASSERT_EQ(found().size(), 3U);
    EXPECT_EQ(m_stretches[0].last, (Timecode{1, 0, 0, 19}));
    EXPECT_EQ(m_stretches[1].first, (Timecode{1, 0, 1, 3}));
    EXPECT_EQ(m_stretches[2].first, (Timecode{1, 0, 1, 3}));
}

TEST_F(StretchFinderTest, ATapeThatStoodStillBeginsAnother) {
    words({1, 0, 0, 0}, 20, rate::fps25);
    silence(0.6 * 1920);
    words({1, 0, 0, 20}, 20, rate::fps25);
    EXPECT_EQ(found().size(), 2U);
}

TEST_F(StretchFinderTest, DropFrameThatDoesNotDropIsBroken) {
    words({0, 0, 59, 0}, 30, rate::fps30Drop);
    word({0, 1, 0, 0}, true);
    word({0, 1, 0, 1}, true);
    words({0, 1, 0, 2}, 30, rate::fps30Drop);
    ASSERT_EQ(found().size(), 2U);
    EXPECT_EQ(m_stretches[1].first, (Timecode{0, 1, 0, 2}));
}

TEST_F(StretchFinderTest, AWordAloneIsNoise) {
    word({1, 0, 0, 0});
    silence(5 * sampleRate);
    word({2, 0, 0, 0});
    EXPECT_TRUE(found().empty());
}

TEST_F(StretchFinderTest, IsOverAWhileAfterItsLastWord) {
    words({1, 0, 0, 0}, 20, rate::fps25);
    m_finder.reached(m_now + 0.5 * sampleRate);
    EXPECT_TRUE(m_stretches.empty());
    m_finder.reached(m_now + 3 * sampleRate);
    EXPECT_EQ(m_stretches.size(), 1U);
}

TEST_F(StretchFinderTest, KeepsTheFirstOfManyHoles) {
    for (int i = 0; i < 3000; ++i) {
        word(timeOfFrame(static_cast<std::uint64_t>(2 * i), frameRateForCode(rate::fps25)));
        if (i == 0)
            word({0, 0, 0, 1});
        else
            silence(m_length);
    }
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(m_stretches[0].unread, 2998U);
    EXPECT_EQ(m_stretches[0].holes.size(), Stretch::mostHoles);
}

} // namespace
