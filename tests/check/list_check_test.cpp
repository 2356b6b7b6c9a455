#include "check/list_check.h"
#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <set>
#include <string>

using namespace vexa;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

BatchItemRef item(std::uint64_t reel, const char* start, const char* stop,
                  std::uint64_t rate = rate::fps25, const QString& title = u"a"_s) {
    static std::uint64_t id = 0;
    return std::make_shared<BatchItem>(BatchItem{reel, title, pack(timecodeFromText(start).value()),
                                                 pack(timecodeFromText(stop).value()), rate, 0,
                                                 id++});
}

/// The findings as texts: "2 overlaps “a”, which ends at 01:10:00:00", with rows from 1.
std::vector<std::string> check(const BatchItems& items, std::uint64_t tapeMinutes = 0) {
    std::vector<std::string> texts;
    for (const auto& finding : checkList(items, tapeMinutes)) {
        EXPECT_EQ(finding.item, items[finding.row]);
        texts.push_back(std::to_string(finding.row + 1) + ' ' + findingText(finding).toStdString());
    }
    return texts;
}

TEST(ListCheck, HasNothingToSayOfAGoodList) {
    EXPECT_THAT(check({}), IsEmpty());
    EXPECT_THAT(check({item(1, "01:00:00:00", "01:10:00:00"), item(1, "01:10:00:00", "01:20:00:00"),
                       item(2, "01:00:00:00", "01:10:00:00", rate::fps24)},
                      20),
                IsEmpty());
}

TEST(ListCheck, FindsRowsThatDoNotStopAfterTheirStart) {
    EXPECT_THAT(
        check({item(1, "01:00:00:00", "01:00:00:00"), item(2, "01:00:00:00", "00:59:00:00")}),
        ElementsAre("1 does not stop after its start", "2 does not stop after its start"));
}

TEST(ListCheck, FindsTimesThatTheirRateDoesNotHave) {
    EXPECT_THAT(
        check({item(1, "01:00:00:24", "01:10:00:24", rate::fps24),
               item(2, "01:01:00:00", "01:11:00:02", rate::fps30Drop)}),
        ElementsAre("1 start time 01:00:00:24: no frame 24 at 24 fps",
                    "1 stop time 01:10:00:24: no frame 24 at 24 fps",
                    "2 start time 01:01:00:00: no frame 0 in second 0 of minute 1 at 30 df"));
}

TEST(ListCheck, FindsOverlapsAlsoOfRowsThatAreNotNeighbours) {
    EXPECT_THAT(
        check({item(1, "01:00:00:00", "02:00:00:00", rate::fps25, u"long"_s),
               item(2, "01:00:00:00", "01:10:00:00"), item(1, "01:10:00:00", "01:20:00:00"),
               item(1, "01:50:00:00", "02:10:00:00"), item(1, "02:10:00:00", "02:20:00:00")}),
        ElementsAre("3 overlaps “long”, which ends at 02:00:00:00",
                    "4 overlaps “long”, which ends at 02:00:00:00"));
}

TEST(ListCheck, FindsOverlapsInAListOutOfOrder) {
    EXPECT_THAT(
        check({item(1, "01:10:00:00", "01:20:00:00"), item(1, "01:00:00:00", "01:15:00:00")}),
        ElementsAre("1 overlaps “a”, which ends at 01:15:00:00"));
}

TEST(ListCheck, FindsRatesThatChangeWithinAReel) {
    EXPECT_THAT(check({item(1, "01:00:00:00", "01:10:00:00"),
                       item(1, "01:20:00:00", "01:30:00:00", rate::fps30Drop),
                       item(1, "01:40:00:00", "01:50:00:00")}),
                ElementsAre("2 is at 30 df, but reel 1 begins at 25 fps"));
    EXPECT_THAT(check({item(1, "01:00:00:00", "01:10:00:00", rate::fps30),
                       item(1, "01:20:00:00", "01:30:00:00", 77)}), // counts as 30 fps
                IsEmpty());
}

TEST(ListCheck, FindsTheRowWithWhichAReelBecomesTooLong) {
    const BatchItems items{
        item(1, "01:00:00:00", "01:10:00:00"), item(1, "01:10:00:00", "01:20:00:01"),
        item(1, "01:30:00:00", "01:40:00:00"), item(2, "01:00:00:00", "01:20:00:00")};
    EXPECT_THAT(check(items, 20), ElementsAre("2 runs past the end of reel 1's tape"));
    EXPECT_THAT(check(items, 31), IsEmpty());
    EXPECT_THAT(check(items, 0), IsEmpty());
}

TEST(ListCheck, FindsDoublesAndDoesNotCallThemOverlaps) {
    EXPECT_THAT(check({item(1, "01:00:00:00", "01:10:00:00"), item(1, "01:00:00:00", "01:10:00:00"),
                       item(1, "01:00:00:00", "01:10:00:00", rate::fps25, u"b"_s)}),
                ElementsAre("2 is in the list twice", "3 overlaps “a”, which ends at 01:10:00:00"));
}

/// Seeds faults at known rows of a long list that has none.
TEST(ListCheck, FindsExactlyTheFaultsThatWereSeeded) {
    BatchItems items;
    for (std::uint64_t row = 0; row < 20'000; ++row) {
        const auto start = pack({row % 20, 0, 0, 0});
        const auto stop = pack({row % 20, 50, 0, 0});
        items.push_back(std::make_shared<BatchItem>(
            BatchItem{row / 20, u"row %1"_s.arg(row), start, stop, row / 20 % 4, 0, row}));
    }
    ASSERT_THAT(checkList(items, 20 * 50), IsEmpty());

    using Fault = Finding::Fault;
    const std::vector<std::pair<Fault, void (*)(BatchItems&, std::size_t)>> seeds{
        {Fault::stopNotAfterStart,
         [](auto& list, auto row) { list[row]->stop = list[row]->start; }},
        {Fault::noSuchStart, [](auto& list, auto row) { list[row]->start += 40; }},
        {Fault::noSuchStop, [](auto& list, auto row) { list[row]->stop += 40; }},
        {Fault::overlaps, [](auto& list, auto row) { list[row - 1]->stop = list[row]->start + 1; }},
        {Fault::rateChanges,
         [](auto& list, auto row) { list[row]->rate = (list[row]->rate + 1) % 4; }},
        {Fault::doubled, [](auto& list, auto row) {
             const auto id = list[row]->id;
             *list[row] = *list[row - 1];
             list[row]->id = id;
         }}};
    std::mt19937 random(17);
    std::set<std::pair<std::size_t, Fault>> seeded;
    for (std::uint64_t reel = 0; reel < 1000; reel += 3) {
        const auto& [fault, seed] = seeds[random() % seeds.size()];
        const auto row = reel * 20 + 2 + random() % 17;
        seed(items, row);
        seeded.emplace(row, fault);
    }
    std::set<std::pair<std::size_t, Fault>> found;
    for (const auto& finding : checkList(items, 20 * 51))
        found.emplace(finding.row, finding.fault);
    EXPECT_EQ(found, seeded);
}

TEST(ReelTotals, AddUpTheRowsOfEachReel) {
    using std::chrono::minutes;
    EXPECT_THAT(reelTotals({item(2, "01:00:00:00", "01:10:00:00"),
                            item(1, "01:00:00:00", "01:10:00:00", rate::fps24),
                            item(2, "02:00:00:00", "02:05:00:00", rate::fps30)}),
                ElementsAre(ReelTotal{1, 1, minutes(10)}, ReelTotal{2, 2, minutes(15)}));
    EXPECT_THAT(reelTotals({}), IsEmpty());
}

TEST(ReelTotals, LeaveOutRowsThatNeverEnd) {
    const auto endless = item(1, "01:00:00:00", "24:00:00:00");
    EXPECT_THAT(reelTotals({endless}), ElementsAre(ReelTotal{1, 1, ClockTime::zero()}));
}

} // namespace
