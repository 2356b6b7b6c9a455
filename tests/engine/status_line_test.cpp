#include "engine/status_line.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct Case {
    const char* name;
    StatusSituation situation;
    StatusLine line;
};

std::ostream& operator<<(std::ostream& out, const Case& testCase) { return out << testCase.name; }

/// A list that Play would stripe.
StatusSituation atRest() {
    return {.file = u"short.vexaB"_s,
            .useBatch = true,
            .items = 12,
            .reels = 2,
            .time = RunLoop::Seconds(4460)};
}

StatusSituation with(const std::function<void(StatusSituation&)>& change) {
    auto situation = atRest();
    change(situation);
    return situation;
}

class StatusLineText : public testing::TestWithParam<Case> {};

TEST_P(StatusLineText, TellsWhatConcernsTheOperatorMost) {
    EXPECT_EQ(statusLine(GetParam().situation).text, GetParam().line.text);
    EXPECT_EQ(statusLine(GetParam().situation).isConcern, GetParam().line.isConcern);
}

const QString untaken = u"Stop time not taken: press Return"_s;
const QString allRows = u"the run now takes all rows"_s;

INSTANTIATE_TEST_SUITE_P(
    Table, StatusLineText,
    testing::Values(Case{"atRest", atRest(), {u"12 items · 2 reels · 1:14:20"_s, false}},
                    Case{"oneItem",
                         with([](auto& now) { now.items = now.reels = 1; }),
                         {u"1 item · 1 reel · 1:14:20"_s, false}},
                    Case{"aMinuteOfDropFrameNumbers", // 1800 frames
                         with([](auto& now) {
                             now.items = now.reels = 1;
                             now.time = 1800 * RunLoop::Seconds(600) / 17982;
                         }),
                         {u"1 item · 1 reel · 1:00"_s, false}},
                    Case{"anItemThatNeverEnds",
                         with([](auto& now) { now.time.reset(); }),
                         {u"12 items · 2 reels"_s, false}},
                    Case{"emptyList", StatusSituation{}, {u"no items"_s, false}},
                    Case{"batchStripingOff",
                         with([](auto& now) { now.useBatch = false; }),
                         {u"batch striping off: no stop time"_s, true}},
                    Case{"batchStripingOffWithAStopTime",
                         with([](auto& now) {
                             now.useBatch = false;
                             now.stopTimeSet = true;
                         }),
                         {u"12 items · 2 reels · 1:14:20"_s, false}},
                    Case{"unwritten",
                         with([](auto& now) { now.fileTrouble = FileTrouble::unwritten; }),
                         {u"short.vexaB could not be written"_s, true}},
                    Case{"unread",
                         with([](auto& now) { now.fileTrouble = FileTrouble::unread; }),
                         {u"short.vexaB could not be read"_s, true}},
                    Case{"rowsBeforeTheFile",
                         with([](auto& now) {
                             now.fileTrouble = FileTrouble::unwritten;
                             now.rows = allRows;
                         }),
                         {allRows, true}},
                    Case{"entryBeforeAll",
                         with([](auto& now) {
                             now.fileTrouble = FileTrouble::unwritten;
                             now.rows = allRows;
                             now.entry = untaken;
                         }),
                         {untaken, true}}));

} // namespace
