#include "engine/run_rows.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

BatchItemRef item(const QString& title) {
    return std::make_shared<BatchItem>(BatchItem{.title = title});
}

const BatchItemRef one = item(u"Part one"_s);
const BatchItemRef two = item(u"Part two"_s);
const BatchItemRef three = item(u"Part three"_s);
const BatchItemRef other = item(u"Intro"_s);

/// A run of all rows that has striped the first and plays the second.
QString told(const BatchItems& list, std::size_t next = 2) {
    const std::set<BatchItemRef> finished{one};
    return runRowsText(runRows({list, list, next, two, finished}));
}

TEST(RunRows, AreNotSpokenOfWhileTheRunGoesOnAsItWasBegun) {
    EXPECT_EQ(told({one, two, three}), QString());
    EXPECT_EQ(told({one, two, three, other}), QString()) << "one more at the end";
}

TEST(RunRows, TellOfARowThatIsTakenAgain) {
    EXPECT_EQ(told({other, one, two, three}), u"the run will take Part two again"_s)
        << "one was put in before";
}

TEST(RunRows, TellOfARowThatIsLeftOut) {
    EXPECT_EQ(told({two, three}), u"the run will not take Part three"_s)
        << "the first was removed, and the cursor is where it was";
    EXPECT_EQ(told({two, three, other}), u"the run will not take Part three"_s);
    EXPECT_EQ(told({one, two, three, other}, 4), u"the run will not take 2 rows"_s);
}

TEST(RunRows, TellOfARemovedRowThatPlaysOn) {
    EXPECT_EQ(told({one, three, other}, 1), u"Part two was removed and plays to its end"_s);
}

TEST(RunRows, TellOfRemovedRowsThatTheSelectionStillHolds) {
    const BatchItems list{one, two};
    const BatchItems selection{one, two, three};
    const std::set<BatchItemRef> finished{one};
    EXPECT_EQ(runRowsText(runRows({list, selection, 2, two, finished})),
              u"the run will take Part three all the same"_s);
}

TEST(RunRows, TellFirstThatTheRunTakesOthers) {
    RunRows rows{.beganWithSelection = true, .skipped = {one}};
    EXPECT_EQ(runRowsText(rows), u"the run now takes all rows"_s);
    rows.takesSelection = std::exchange(rows.beganWithSelection, false);
    EXPECT_EQ(runRowsText(rows), u"the run now takes the selected rows"_s);
}

TEST(RunRows, MayBeWithoutATitle) {
    const auto untitled = item({});
    EXPECT_EQ(runRowsText({.repeated = {untitled}}),
              u"the run will take an item without a title again"_s);
}

} // namespace
