#include "tape/tape_row.h"
#include "timecode/sync_type.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

TapeRow row(const Timecode& start, const Timecode& stop, std::uint64_t rate) {
    TapeRow row;
    row.start = start;
    row.stop = stop;
    row.rate = &frameRateForCode(rate);
    return row;
}

TEST(TapeRow, IsWhatTheListSays) {
    const auto item = std::make_shared<BatchItem>(
        BatchItem{12, u"Ω"_s, pack({1, 0, 0, 0}), pack({1, 2, 3, 4}), rate::fps25, sync::dtl, 7});
    const auto rows = tapeRows({item, item, item}, {0, 2, 5});
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1].number, 3U);
    EXPECT_EQ(rows[1].reel, 12U);
    EXPECT_EQ(rows[1].title, "Ω");
    EXPECT_EQ(rows[1].start, (Timecode{1, 0, 0, 0}));
    EXPECT_EQ(rows[1].stop, (Timecode{1, 2, 3, 4}));
    EXPECT_EQ(rows[1].rate->code, rate::fps25);
    EXPECT_EQ(obstacle(rows[1]), "");
    EXPECT_EQ(tapeRows({item, item, item}).size(), 3U);
}

TEST(TapeRow, FskHasNoSignal) {
    const auto item = std::make_shared<BatchItem>(
        BatchItem{1, {}, 0, pack({0, 0, 1, 0}), rate::fps25, sync::fsk, 0});
    EXPECT_EQ(obstacle(tapeRows({item}).front()), "FSK has no form in software");
}

TEST(TapeRow, CodesThatNobodyKnowsCountAsTheGeneratorCountsThem) {
    const auto item =
        std::make_shared<BatchItem>(BatchItem{1, {}, 0, pack({0, 0, 1, 0}), 17, 99, 0});
    const auto row = tapeRows({item}).front();
    EXPECT_EQ(row.rate->code, rate::fps30);
    EXPECT_EQ(obstacle(row), "");
}

TEST(TapeRow, TheLastFrameIsTheOneBeforeTheStopTime) {
    // At 01:00:00:00 the clock reaches the stop time and the generator is stopped.
    const auto plain = row({0, 59, 59, 20}, {1, 0, 0, 0}, rate::fps25);
    EXPECT_EQ(frameCount(plain), 5U);
    EXPECT_EQ(lastFrame(plain), (Timecode{0, 59, 59, 24}));
    const auto drop = row({0, 0, 59, 28}, {0, 1, 0, 3}, rate::fps30Drop);
    EXPECT_EQ(frameCount(drop), 3U);
    EXPECT_EQ(lastFrame(drop), (Timecode{0, 1, 0, 2}));
    EXPECT_EQ(lastFrame(row({0, 0, 59, 0}, {0, 1, 0, 2}, rate::fps30Drop)),
              (Timecode{0, 0, 59, 29}));
}

TEST(TapeRow, TellsWhatIsInTheWay) {
    const struct {
        TapeRow row;
        const char* obstacle;
    } cases[] = {
        {row({1, 0, 0, 0}, {1, 0, 0, 0}, rate::fps25),
         "the stop time 01:00:00:00 is not after the start time 01:00:00:00"},
        {row({23, 59, 50, 0}, {0, 0, 10, 0}, rate::fps25),
         "the stop time 00:00:10:00 is not after the start time 23:59:50:00"},
        {row({1, 0, 0, 25}, {1, 0, 1, 0}, rate::fps25),
         "start time 01:00:00:25: no frame 25 at 25 fps"},
        {row({0, 0, 0, 0}, {0, 1, 0, 0}, rate::fps30Drop),
         "stop time 00:01:00:00: no frame 0 in second 0 of minute 1 at 30 df"},
        {row({0, 0, 0, 0}, {24, 0, 0, 0}, rate::fps24), "stop time 24:00:00:00: no hour 24"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(obstacle(each.row), each.obstacle);
}

} // namespace
