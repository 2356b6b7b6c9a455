#include "tape/tape_check.h"
#include "tape/tape_file.h"
#include "timecode/frame_number.h"

#include <gmock/gmock.h>

using namespace vexa;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const auto& fps25 = frameRateForCode(rate::fps25);

/// Recordings of stretches at 25 frames, with their faults as texts.
class TapeCheck : public testing::Test {
protected:
    void row(const Timecode& start, const Timecode& stop, std::uint64_t reel = 1,
             const FrameRate& rate = fps25) {
        TapeRow row;
        row.number = m_rows.size() + 1;
        row.reel = reel;
        row.start = start;
        row.stop = stop;
        row.rate = &rate;
        m_rows.push_back(row);
    }

    /// Adds a stretch after the existing ones, with a pause in seconds.
    Stretch& stretch(const Timecode& first, std::uint64_t frames, double pause = 5,
                     const FrameRate& rate = fps25) {
        auto& tape = m_tapes.back();
        Stretch stretch;
        stretch.first = first;
        stretch.last = timeOfFrame(frameNumber(first, rate) + frames - 1, rate);
        stretch.rate = &rate;
        stretch.frames = frames;
        stretch.begin = (tape.stretches.empty() ? 0 : tape.stretches.back().end) + pause * 48000;
        stretch.end = stretch.begin + static_cast<double>(frames) * 1920;
        tape.stretches.push_back(stretch);
        return tape.stretches.back();
    }

    void nextRecording() { m_tapes.emplace_back(); }

    TapeVerdict verdict() const { return compare(m_rows, m_tapes, 0.0005); }

    /// The faults of a row, as texts.
    std::vector<std::string> faults(std::size_t row) const {
        std::vector<std::string> texts;
        const auto found = verdict();
        for (const auto& fault : found.rows.at(row).faults)
            texts.push_back(text(fault));
        return texts;
    }

    std::vector<TapeRow> m_rows;
    std::vector<TapeContents> m_tapes{1};
};

TEST_F(TapeCheck, ARowIsWholeWhereAllItsFramesAre) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 0}, 250);
    EXPECT_TRUE(verdict().rows[0].isWhole());
    EXPECT_THAT(faults(0), IsEmpty());
    EXPECT_THAT(verdict().unlisted, IsEmpty());
}

TEST_F(TapeCheck, ARowIsMissingWhereNoneIs) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    row({2, 0, 0, 0}, {2, 0, 10, 0});
    stretch({2, 0, 0, 0}, 250);
    EXPECT_FALSE(verdict().rows[0].isWhole());
    EXPECT_THAT(verdict().rows[0].passages, IsEmpty());
    EXPECT_TRUE(verdict().rows[1].isWhole());
}

TEST_F(TapeCheck, NamesTheFramesThatLackAtTheEnds) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 5}, 240);
    EXPECT_THAT(faults(0), ElementsAre("begins 5 frames late, at 01:00:00:05",
                                       "ends 5 frames early, after 01:00:09:19"));
}

TEST_F(TapeCheck, NamesTheFramesThatLackWithin) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 0}, 100);
    stretch({1, 0, 4, 8}, 142, 0.02);
    EXPECT_THAT(faults(0), ElementsAre("8 frames missing, 01:00:04:00 to 01:00:04:07"));
    EXPECT_EQ(verdict().rows[0].faults[0].place, (5 * 48000 + 100 * 1920));
}

TEST_F(TapeCheck, NamesHolesWhereTheyAre) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    auto& tape = stretch({1, 0, 0, 0}, 250);
    tape.holes = {{1000, 30, 1}, {2000, 40, 3}};
    tape.unread = 4;
    EXPECT_THAT(faults(0), ElementsAre("1 frame unread, 01:00:01:05",
                                       "3 frames unread, 01:00:01:15 to 01:00:01:17"));
    EXPECT_EQ(verdict().rows[0].faults[0].place, 1000);
}

TEST_F(TapeCheck, AHoleBetweenRowsIsNoFault) {
    row({1, 0, 0, 0}, {1, 0, 2, 0});
    row({1, 0, 2, 10}, {1, 0, 4, 0});
    auto& tape = stretch({1, 0, 0, 0}, 100);
    tape.holes = {{96000, 50, 10}};
    EXPECT_TRUE(verdict().rows[0].isWhole());
    EXPECT_TRUE(verdict().rows[1].isWhole());
}

TEST_F(TapeCheck, NamesRepeatsAndPauses) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 0}, 100);
    stretch({1, 0, 3, 0}, 50, 0);
    stretch({1, 0, 5, 0}, 125, 0.3);
    EXPECT_THAT(faults(0), ElementsAre("back by 25 frames, to 01:00:03:00",
                                       "stands still for 0.300 s before 01:00:05:00"));
}

TEST_F(TapeCheck, NamesTheWrongRateAndSpeed) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 0}, 300, 5, frameRateForCode(rate::fps30)).speed = -0.001;
    EXPECT_THAT(faults(0), ElementsAre("30 fps from 01:00:00:00 on", "0.100 % too slow"));
}

TEST_F(TapeCheck, WhatRunsOnForAWhileBelongsToTheRow) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 0}, 253);
    EXPECT_TRUE(verdict().rows[0].isWhole());
    EXPECT_THAT(faults(0), ElementsAre("runs on for 3 frames"));
    EXPECT_THAT(verdict().unlisted, IsEmpty());
}

TEST_F(TapeCheck, WhatRunsOnIsNotTheBeginningOfTheNextRow) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    row({1, 0, 10, 0}, {1, 0, 20, 0});
    stretch({1, 0, 0, 0}, 252);
    stretch({1, 0, 10, 0}, 250);
    EXPECT_THAT(faults(0), ElementsAre("runs on for 2 frames"));
    EXPECT_THAT(faults(1), IsEmpty());
}

TEST_F(TapeCheck, WhatGoesOnForLongerIsOnNoRow) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({0, 59, 59, 0}, 300);
    ASSERT_EQ(verdict().unlisted.size(), 2U);
    EXPECT_EQ(firstOf(verdict().unlisted[0], m_tapes), (Timecode{0, 59, 59, 0}));
    EXPECT_EQ(lastOf(verdict().unlisted[0], m_tapes), (Timecode{0, 59, 59, 24}));
    EXPECT_EQ(firstOf(verdict().unlisted[1], m_tapes), (Timecode{1, 0, 10, 0}));
    EXPECT_EQ(lastOf(verdict().unlisted[1], m_tapes), (Timecode{1, 0, 10, 24}));
    EXPECT_TRUE(verdict().rows[0].isWhole());
}

TEST_F(TapeCheck, OneStretchMayHoldSeveralRows) {
    row({1, 0, 0, 0}, {1, 0, 2, 0});
    row({1, 0, 2, 0}, {1, 0, 4, 0});
    row({1, 0, 4, 0}, {1, 0, 6, 0});
    stretch({1, 0, 0, 0}, 150);
    const auto found = verdict();
    for (const auto& row : found.rows)
        EXPECT_TRUE(row.isWhole());
    EXPECT_THAT(verdict().unlisted, IsEmpty());
}

TEST_F(TapeCheck, AStretchOverMidnightHoldsARowOnEachSide) {
    row({23, 59, 58, 0}, {23, 59, 59, 24});
    row({0, 0, 0, 0}, {0, 0, 1, 0});
    stretch({23, 59, 58, 0}, 75);
    EXPECT_TRUE(verdict().rows[0].isWhole());
    EXPECT_TRUE(verdict().rows[1].isWhole());
}

TEST_F(TapeCheck, RowsOfTheSameTimesComeInTheOrderOfTheList) {
    row({1, 0, 0, 0}, {1, 0, 10, 0}, 1);
    row({1, 0, 0, 0}, {1, 0, 10, 0}, 2);
    stretch({1, 0, 0, 0}, 100);
    stretch({1, 0, 4, 8}, 142, 0.02);
    nextRecording();
    stretch({1, 0, 0, 0}, 250);
    EXPECT_THAT(faults(0), ElementsAre("8 frames missing, 01:00:04:00 to 01:00:04:07"));
    EXPECT_TRUE(verdict().rows[1].isWhole());
    EXPECT_EQ(verdict().rows[1].passages[0].recording, 1U);
}

TEST_F(TapeCheck, UserBitsNameTheReel) {
    row({1, 0, 0, 0}, {1, 0, 10, 0}, 1);
    row({1, 0, 0, 0}, {1, 0, 10, 0}, 12);
    stretch({1, 0, 0, 0}, 250).userBits = reelUserBits(12);
    EXPECT_THAT(verdict().rows[0].passages, IsEmpty());
    EXPECT_TRUE(verdict().rows[1].isWhole());
}

TEST_F(TapeCheck, ASecondTakeIsOnNoRow) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 0}, 250);
    stretch({1, 0, 0, 0}, 250);
    EXPECT_TRUE(verdict().rows[0].isWhole());
    ASSERT_EQ(verdict().unlisted.size(), 1U);
    EXPECT_EQ(verdict().unlisted[0].stretch, 1U);
}

TEST_F(TapeCheck, ARowMayBeInTwoRecordings) {
    row({1, 0, 0, 0}, {1, 0, 10, 0});
    stretch({1, 0, 0, 0}, 100);
    nextRecording();
    stretch({1, 0, 4, 0}, 150);
    EXPECT_TRUE(verdict().rows[0].isWhole());
}

} // namespace
