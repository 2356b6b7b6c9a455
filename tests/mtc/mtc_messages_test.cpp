#include "mtc/mtc_messages.h"

#include <gmock/gmock.h>

using namespace vexa;
using testing::ElementsAre;

namespace {

constexpr Timecode time{23, 59, 58, 17};

TEST(MtcFullFrame, TellsTheTimeAndTheRate) {
    const auto full = [](std::uint64_t rateCode) {
        return mtcFullFrame(time, frameRateForCode(rateCode));
    };
    EXPECT_THAT(full(rate::fps24),
                ElementsAre(0xF0, 0x7F, 0x7F, 0x01, 0x01, 0x17, 0x3B, 0x3A, 0x11, 0xF7));
    EXPECT_EQ(full(rate::fps25)[5], 0x37);
    EXPECT_EQ(full(rate::fps30Drop)[5], 0x57);
    EXPECT_EQ(full(rate::fps30)[5], 0x77);
}

TEST(MtcQuarterFrame, TellsANibbleInEachPiece) {
    const auto& rate = frameRateForCode(rate::fps30Drop);
    const std::uint8_t pieces[] = {0x01, 0x11, 0x2A, 0x33, 0x4B, 0x53, 0x67, 0x75};
    for (unsigned piece = 0; piece < mtcPieces; ++piece)
        EXPECT_THAT(mtcQuarterFrame(time, rate, piece), ElementsAre(0xF1, pieces[piece]));
}

TEST(MtcQuarterFrame, TellsTheRateInTheLastPiece) {
    const auto last = [](std::uint64_t hours, std::uint64_t rateCode) {
        return mtcQuarterFrame({hours, 0, 0, 0}, frameRateForCode(rateCode), 7)[1];
    };
    EXPECT_EQ(last(0, rate::fps24), 0x70);
    EXPECT_EQ(last(0, rate::fps25), 0x72);
    EXPECT_EQ(last(0, rate::fps30Drop), 0x74);
    EXPECT_EQ(last(0, rate::fps30), 0x76);
    EXPECT_EQ(last(16, rate::fps30), 0x77);
}

} // namespace
