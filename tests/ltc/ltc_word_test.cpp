#include "ltc/ltc_word.h"

#include <gtest/gtest.h>

#include <ltc.h>

#include <cstring>

using namespace vexa;

namespace {

/// The word in libltc's layout.
LTCFrame frameOf(const LtcWord& word) {
    std::array<unsigned char, 10> bytes{};
    for (std::size_t bit = 0; bit < word.size(); ++bit)
        bytes[bit / 8] = static_cast<unsigned char>(bytes[bit / 8] | word[bit] << bit % 8);
    LTCFrame frame{};
    std::memcpy(&frame, bytes.data(), bytes.size());
    return frame;
}

std::string timeOf(LTCFrame frame) {
    SMPTETimecode time;
    ltc_frame_to_time(&time, &frame, 0);
    return timecodeText({time.hours, time.mins, time.secs, time.frame});
}

/// The bits in order, in groups of eight.
std::string textOf(const LtcWord& word) {
    std::string text;
    for (std::size_t bit = 0; bit < word.size(); ++bit) {
        if (bit > 0 && bit % 8 == 0)
            text += ' ';
        text += word[bit] ? '1' : '0';
    }
    return text;
}

TEST(LtcWord, HasTheBitsOfTheStandard) {
    // Units, user group, tens and user group of each field, then the sync word.
    EXPECT_EQ(textOf(ltcWord({12, 34, 56, 17}, frameRateForCode(rate::fps30))),
              "11100000 10000000 01100000 10100000 00100000 11000000 01000000 10000000 "
              "00111111 11111101");
}

class WordAtEveryRate : public testing::TestWithParam<std::uint64_t> {
protected:
    const FrameRate& frameRate = frameRateForCode(GetParam());

    /// Calls check with every number of a day, in one second out of seven.
    template<typename Check>
    void forTheNumbersOfADay(Check check) const {
        for (std::uint64_t second = 0; second < 24 * 3600; second += 7)
            for (std::uint64_t frame = 0; frame < 30; ++frame) {
                const Timecode time{second / 3600, second / 60 % 60, second % 60, frame};
                if (isValid(time, frameRate))
                    check(time);
            }
    }
};

TEST_P(WordAtEveryRate, ReadsBackAsTheSameTime) {
    forTheNumbersOfADay([this](const Timecode& time) {
        const auto frame = frameOf(ltcWord(time, frameRate));
        ASSERT_EQ(timeOf(frame), timecodeText(time));
        ASSERT_EQ(frame.dfbit, frameRate.dropFrame);
        ASSERT_EQ(frame.col_frame, 0u);
        ASSERT_EQ(frame.binary_group_flag_bit1, 0u);
    });
}

TEST_P(WordAtEveryRate, HoldsAnEvenNumberOfZerosByItsPolarityBit) {
    const auto standard = GetParam() == rate::fps24   ? LTC_TV_FILM_24
                          : GetParam() == rate::fps25 ? LTC_TV_625_50
                                                      : LTC_TV_525_60;
    forTheNumbersOfADay([&](const Timecode& time) {
        const auto word = ltcWord(time, frameRate, 0x12345678);
        ASSERT_EQ((word.size() - word.count()) % 2, 0u) << timecodeText(time);
        const auto frame = frameOf(word);
        auto judged = frame;
        ltc_frame_set_parity(&judged, standard);
        ASSERT_EQ(std::memcmp(&judged, &frame, sizeof frame), 0) << timecodeText(time);
    });
}

INSTANTIATE_TEST_SUITE_P(LtcWord, WordAtEveryRate, testing::Range<std::uint64_t>(0, rate::count));

TEST(LtcWord, CarriesTheUserGroupsInTheirOrder) {
    const auto frame = frameOf(ltcWord({1, 2, 3, 4}, frameRateForCode(rate::fps25), 0x87654321));
    EXPECT_EQ(frame.user1, 1u);
    EXPECT_EQ(frame.user2, 2u);
    EXPECT_EQ(frame.user3, 3u);
    EXPECT_EQ(frame.user4, 4u);
    EXPECT_EQ(frame.user5, 5u);
    EXPECT_EQ(frame.user6, 6u);
    EXPECT_EQ(frame.user7, 7u);
    EXPECT_EQ(frame.user8, 8u);
    EXPECT_EQ(timeOf(frame), "01:02:03:04");
}

} // namespace
