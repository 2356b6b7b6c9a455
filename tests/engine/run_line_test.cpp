#include "engine/run_line.h"
#include "support/ControllerRig.h"

#include <gtest/gtest.h>

#include <ostream>

namespace vexa {
void PrintTo(const RunLine& line, std::ostream* out) {
    for (const auto& text : {line.words, line.left, line.place, line.whole, line.sentence})
        *out << '"' << text.toStdString() << "\" ";
}
} // namespace vexa

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;

namespace {

using Seconds = RunLoop::Seconds;

struct Case {
    const char* name;
    RunSituation situation;
    QString sentence;
    RunLine line;
};

std::ostream& operator<<(std::ostream& out, const Case& testCase) { return out << testCase.name; }

RunSituation single(Phase phase, bool stopTimeSet) {
    return {.phase = phase,
            .settings = {tc("01:00:00:00"), tc("01:10:00:00"), rate::fps25, sync::mtc},
            .stopTimeSet = stopTimeSet,
            .now = QTime(14, 0)};
}

RunSituation batch(Phase phase) {
    return {.phase = phase,
            .isBatch = true,
            .nextTitle = u"Part two"_s,
            .number = 2,
            .items = 5,
            .reels = 3,
            .reel = 1,
            .leftOfRun = Seconds(3753),
            .now = QTime(14, 0)};
}

RunSituation with(RunSituation situation, const std::function<void(RunSituation&)>& change) {
    change(situation);
    return situation;
}

class RunLineText : public testing::TestWithParam<Case> {};

TEST_P(RunLineText, TellsOfTheRun) {
    auto expected = GetParam().line;
    expected.sentence = GetParam().sentence;
    EXPECT_EQ(runLine(GetParam().situation), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Single, RunLineText,
    testing::Values(
        Case{"ready",
             single(Phase::stopped, true),
             u"ready: 01:00:00:00 → 01:10:00:00, 25 fps MTC"_s,
             {u"ready: 01:00:00:00 → 01:10:00:00"_s, u"25 fps MTC"_s}},
        Case{"readyWithoutEnd",
             single(Phase::stopped, false),
             u"ready: 01:00:00:00 →, 25 fps MTC · no stop time"_s,
             {u"ready: 01:00:00:00 →"_s, u"25 fps MTC"_s, u"no stop time"_s}},
        Case{"fskHasNoRate",
             with(single(Phase::stopped, true),
                  [](auto& now) { now.settings.syncType = sync::fsk; }),
             u"ready: 01:00:00:00 → 01:10:00:00, FSK"_s,
             {u"ready: 01:00:00:00 → 01:10:00:00"_s, u"FSK"_s}},
        Case{"playing",
             with(single(Phase::running, true),
                  [](auto& now) { now.leftOfItem = now.leftOfRun = Seconds(250); }),
             u"playing · 4:10 left, ends 14:04"_s,
             {u"playing"_s, u"4:10 left"_s, {}, u"ends 14:04"_s}},
        Case{"playingWithoutEnd",
             single(Phase::running, false),
             u"playing · no stop time"_s,
             {u"playing"_s, {}, u"no stop time"_s}},
        Case{"endsTomorrow",
             with(single(Phase::running, true),
                  [](auto& now) { now.leftOfItem = now.leftOfRun = Seconds(11 * 3600); }),
             u"playing · 11:00:00 left, ends 01:00"_s,
             {u"playing"_s, u"11:00:00 left"_s, {}, u"ends 01:00"_s}},
        Case{"paused",
             with(single(Phase::paused, true), [](auto& now) { now.leftOfItem = Seconds(250); }),
             u"paused · 4:10 left"_s,
             {u"paused"_s, u"4:10 left"_s}}));

INSTANTIATE_TEST_SUITE_P(
    Batch, RunLineText,
    testing::Values(
        Case{"ready",
             batch(Phase::stopped),
             u"ready: 5 items · 3 reels · 1:02:33"_s,
             {u"ready: 5 items · 3 reels"_s, u"1:02:33"_s}},
        Case{"readyForOne",
             with(batch(Phase::stopped),
                  [](auto& now) {
                      now.items = now.reels = 1;
                      now.leftOfRun.reset();
                  }),
             u"ready: 1 item · 1 reel"_s,
             {u"ready: 1 item · 1 reel"_s}},
        Case{"playing",
             with(batch(Phase::running),
                  [](auto& now) {
                      now.title = u"Part one"_s;
                      now.leftOfItem = Seconds(250);
                  }),
             u"playing Part one · item 2 of 5 · reel 1 · 4:10 left of it · 1:02:33 of the run, "
             "ends 15:02"_s,
             {u"playing"_s, u"4:10 left"_s, u"item 2 of 5 · reel 1"_s,
              u"1:02:33 of the run, ends 15:02"_s}},
        Case{"withReelsToChange",
             with(batch(Phase::running),
                  [](auto& now) {
                      now.title = u"Part one"_s;
                      now.leftOfItem = Seconds(250);
                      now.asksForReels = true;
                  }),
             u"playing Part one · item 2 of 5 · reel 1 · 4:10 left of it · 1:02:33 of the run "
             "+ reel changes"_s,
             {u"playing"_s, u"4:10 left"_s, u"item 2 of 5 · reel 1"_s,
              u"1:02:33 of the run + reel changes"_s}},
        Case{"withoutEnd",
             with(batch(Phase::running),
                  [](auto& now) {
                      now.title = u"Part one"_s;
                      now.leftOfRun.reset();
                  }),
             u"playing Part one · item 2 of 5 · reel 1 · the run does not end"_s,
             {u"playing"_s, {}, u"item 2 of 5 · reel 1"_s, u"the run does not end"_s}},
        Case{"betweenItems",
             with(batch(Phase::betweenItems), [](auto& now) { now.leftOfPause = Seconds(2.2); }),
             u"next Part two in 3 s · item 2 of 5 · reel 1 · 1:02:33 of the run, ends 15:02"_s,
             {u"next Part two in 3 s"_s,
              {},
              u"item 2 of 5 · reel 1"_s,
              u"1:02:33 of the run, ends 15:02"_s}},
        Case{"reelDue",
             with(batch(Phase::awaitingReel),
                  [](auto& now) {
                      now.reel = 2;
                      now.asksForReels = true;
                  }),
             u"LOAD REEL 2 · then Part two · item 2 of 5 · reel 2 · 1:02:33 of the run + reel "
             "changes"_s,
             {u"LOAD REEL 2"_s,
              {},
              u"then Part two · item 2 of 5 · reel 2"_s,
              u"1:02:33 of the run + reel changes"_s}},
        Case{"interrupted",
             with(batch(Phase::paused), [](auto& now) { now.title = u"Part one"_s; }),
             u"paused Part one · Play begins the run again"_s,
             {u"paused"_s, {}, u"Play begins the run again"_s}}));

TEST(RunLineText, SpeaksOfAnItemWithoutATitleAllTheSame) {
    auto situation = batch(Phase::betweenItems);
    situation.nextTitle.clear();
    EXPECT_EQ(runLine(situation).words, u"next item in 0 s"_s);
}

} // namespace
