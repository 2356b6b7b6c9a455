#include "StripeRig.h"
#include "stripe/ItemTimes.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace std::chrono_literals;

namespace {

BatchItemRef item(std::uint64_t reel, const char* start, const char* stop, std::uint64_t rate) {
    return std::make_shared<BatchItem>(BatchItem{reel, {}, packed(start), packed(stop), rate});
}

const auto hourOf24 = item(1, "01:00:00:00", "02:00:00:00", rate::fps24);
const auto tenMinutesOf30Drop = item(2, "01:00:00:00", "01:10:00:00", rate::fps30Drop);
const auto oneFrameOf25 = item(2, "02:00:00:00", "01:00:00:00", rate::fps25);
const auto endless = item(3, "01:00:00:00", "24:00:00:00", rate::fps30);

TEST(ClockTime, FramesOfAllRatesAreWholeNumbersOfIt) {
    for (const auto& rate : frameRates)
        EXPECT_NEAR(rate.frameInterval * ClockTime::period::den,
                    static_cast<double>(frameTime(rate).count()), 1e-6)
            << rate.name;
}

TEST(TimeOf, AnItemIsOfItsFramesAtItsRate) {
    EXPECT_EQ(timeOf(*hourOf24), 1h);
    EXPECT_EQ(timeOf(*oneFrameOf25), 40ms);
    EXPECT_EQ(timeOf(*tenMinutesOf30Drop), 17'982 * ClockTime(1'000'000)) << "exactly ten minutes";
    EXPECT_EQ(timeOf(*tenMinutesOf30Drop), 600s);
    EXPECT_EQ(timeOf(*endless), std::nullopt);
}

TEST(TimeOrZero, IsZeroForAnItemThatNeverEnds) {
    EXPECT_EQ(timeOrZero(*hourOf24), 1h);
    EXPECT_EQ(timeOrZero(*endless), 0s);
}

TEST(ItemTimes, AreAddedUpFromEachRowToTheLast) {
    const ItemTimes times({hourOf24, tenMinutesOf30Drop, oneFrameOf25});
    ASSERT_EQ(times.count(), 3u);
    EXPECT_EQ(times.from(0), 1h + 600s + 40ms);
    EXPECT_EQ(times.from(1), 600s + 40ms);
    EXPECT_EQ(times.from(2), 40ms);
    EXPECT_EQ(times.reelChangesAfter(0), 1u);
    EXPECT_EQ(times.reelChangesAfter(1), 0u);
    EXPECT_EQ(times.reelChangesAfter(2), 0u);
}

TEST(ItemTimes, WhatNeverEndsLeavesNoSumBeforeIt) {
    const ItemTimes times({hourOf24, endless, oneFrameOf25});
    EXPECT_EQ(times.from(0), std::nullopt);
    EXPECT_EQ(times.from(1), std::nullopt);
    EXPECT_EQ(times.from(2), 40ms);
}

TEST(ListTotal, CountsItemsReelsAndTime) {
    const auto total = totalOf({hourOf24, tenMinutesOf30Drop, oneFrameOf25, hourOf24}, 7.5s);
    EXPECT_EQ(total.items, 4u);
    EXPECT_EQ(total.reels, 2u);
    EXPECT_NEAR(total.time->count(), 2 * 3600 + 600 + 0.04 + 3 * 7.5, 1e-9);
    EXPECT_EQ(totalOf({hourOf24}, 7.5s).time, 1h) << "no pause follows the last";
    EXPECT_EQ(totalOf({endless}, 7.5s).time, std::nullopt);
    EXPECT_EQ(totalOf({}, 7.5s).items, 0u);
    EXPECT_EQ(totalOf({}, 7.5s).time, 0s);
}

} // namespace
