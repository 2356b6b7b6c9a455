#include "engine/RunTeller.h"
#include "support/ControllerRig.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;

namespace {

struct Teller : testing::Test {
    /// Three items of ten seconds at 25 fps, five seconds apart; two of them on the first reel.
    Teller() {
        controller.setDelayInSeconds(5);
        const char* titles[]{"one", "two", "three"};
        for (std::uint64_t n = 0; n < 3; ++n)
            controller.addItemToBatchList(
                n < 2 ? 1 : 2, QString::fromLatin1(titles[n]),
                {tc("01:00:00:00"), tc("01:00:10:00"), rate::fps25, sync::mtc});
        controller.setUseBatch(true);
    }
    QString said() { return teller.line(QTime(14, 0)).sentence; }
    QString status() { return teller.status({}).text; }
    void play() { rig.press(transport::playing); }
    void endItem() { rig.tick(250); }
    void endPause() { rig.runLoop.advance(RunLoop::Seconds(controller.delayInSeconds())); }
    void select(const RowIndexes& rows) {
        rig.ui.batchTable.selectRows(rows);
        controller.tableViewSelectionDidChange();
    }
    void chooseMode(std::uint64_t mode) {
        rig.ui.batchRadios.selectCellWithTag(mode);
        controller.handleBatchRadios();
    }
    void remove(const RowIndexes& rows) {
        select(rows);
        controller.handleRemoveFromBatchListButton();
    }

    ControllerRig rig;
    Vexa_RemoteAppDelegate& controller = rig.controller;
    RunTeller teller{controller};
};

TEST_F(Teller, TellsOfABatchRunFromBeginningToEnd) {
    EXPECT_EQ(said(), u"ready: 3 items · 2 reels · 0:40"_s);
    play();
    EXPECT_EQ(said(), u"playing one · item 1 of 3 · reel 1 · 0:10 left of it · 0:40 of the run "
                      "+ reel changes"_s);
    rig.tick(100);
    EXPECT_EQ(said(), u"playing one · item 1 of 3 · reel 1 · 0:06 left of it · 0:36 of the run "
                      "+ reel changes"_s);
    rig.tick(150);
    EXPECT_EQ(said(), u"next two in 5 s · item 2 of 3 · reel 1 · 0:30 of the run + reel changes"_s);
    endPause();
    EXPECT_EQ(said(), u"playing two · item 2 of 3 · reel 1 · 0:10 left of it · 0:25 of the run "
                      "+ reel changes"_s);
    endItem();
    QString asked;
    rig.alerts.whileShown = [&] { asked = said(); };
    endPause();
    EXPECT_EQ(asked, u"LOAD REEL 2 · then three · item 3 of 3 · reel 2 · 0:10 of the run"_s);
    EXPECT_EQ(said(), u"playing three · item 3 of 3 · reel 2 · 0:10 left of it · 0:10 of the run, "
                      "ends 14:00"_s);
    endItem();
    EXPECT_EQ(said(), u"ready: 3 items · 2 reels · 0:40"_s);
}

TEST_F(Teller, TellsOfTheSelectedRows) {
    select({0, 2});
    chooseMode(batchModeSelected);
    EXPECT_EQ(said(), u"ready: 2 items · 2 reels · 0:25"_s);
    play();
    EXPECT_EQ(said(), u"playing one · item 1 of 2 · reel 1 · 0:10 left of it · 0:25 of the run "
                      "+ reel changes"_s);
}

TEST_F(Teller, TellsOfASingleStripe) {
    controller.setUseBatch(false);
    rig.setStripe("01:00:00:00", "01:04:10:00", rate::fps25);
    EXPECT_EQ(said(), u"ready: 01:00:00:00 → 01:04:10:00, 25 fps MTC"_s);
    EXPECT_EQ(teller.lasts(), u"lasts 4:10"_s);
    play();
    EXPECT_EQ(said(), u"playing · 4:10 left, ends 14:04"_s);
    rig.press(transport::paused);
    EXPECT_EQ(said(), u"paused · 4:10 left"_s);
}

TEST_F(Teller, AStripeLastsNoTimeThatCouldBeToldWithoutAStopTime) {
    rig.setStripe("01:00:00:00", nullptr, rate::fps25);
    EXPECT_EQ(teller.lasts(), QString());
}

TEST_F(Teller, DropFramesAreNotCounted) {
    rig.setStripe("01:00:00:00", "01:10:00:00", rate::fps30Drop);
    EXPECT_EQ(teller.lasts(), u"lasts 10:00"_s) << "17,982 frames, not 18,000";
}

TEST_F(Teller, TellsWhatTheListComesToAtRest) {
    EXPECT_EQ(status(), u"3 items · 2 reels · 0:40"_s);
    remove({2});
    EXPECT_EQ(status(), u"2 items · 1 reel · 0:25"_s);
    controller.setDelayInSeconds(0);
    EXPECT_EQ(status(), u"2 items · 1 reel · 0:20"_s);
    controller.setUseBatch(false);
    EXPECT_EQ(status(), u"batch striping off: no stop time"_s);
}

TEST_F(Teller, TellsOfAFileThatWasNotWrittenUntilOneIs) {
    controller.saveDocumentWithURL(u"/nowhere/short.vexaB"_s);
    EXPECT_EQ(status(), u"short.vexaB could not be written"_s);
    controller.newDocument();
    EXPECT_EQ(status(), u"no items"_s);
}

TEST_F(Teller, TellsOfAFileThatWasNotRead) {
    controller.openFile(u"/nowhere/short.vexaB"_s);
    EXPECT_EQ(status(), u"short.vexaB could not be read"_s);
}

TEST_F(Teller, TellsAtOnceThatARunTakesOtherRows) {
    select({0, 1});
    chooseMode(batchModeSelected);
    play();
    EXPECT_EQ(status(), u"3 items · 2 reels · 0:40"_s);
    controller.undoManager().endEvent();
    chooseMode(batchModeAll);
    EXPECT_EQ(status(), u"the run now takes all rows"_s);
    controller.undo();
    EXPECT_EQ(status(), u"3 items · 2 reels · 0:40"_s) << "it was taken back";
    chooseMode(batchModeAll);
    rig.press(transport::stopped);
    EXPECT_EQ(status(), u"3 items · 2 reels · 0:40"_s) << "the run is over";
}

TEST_F(Teller, TellsOfRowsThatAnEditMovesUnderTheCursor) {
    play();
    controller.addItemToBatchList(0, u"intro"_s,
                                  {tc("01:00:00:00"), tc("01:00:10:00"), rate::fps25, sync::mtc});
    EXPECT_EQ(status(), u"the run will take one again"_s);
    remove({0});
    EXPECT_EQ(status(), u"3 items · 2 reels · 0:40"_s);
    endItem();
    endPause();
    remove({0});
    EXPECT_EQ(status(), u"the run will not take three"_s);
}

TEST_F(Teller, TellsOfTheRowUnderWayThatIsRemoved) {
    play();
    remove({0});
    EXPECT_EQ(status(), u"the run will not take two"_s) << "the cursor skips a row";
}

TEST_F(Teller, TellsOfTheLastRowThatIsRemovedUnderWay) {
    play();
    for (int item = 0; item < 2; ++item) {
        endItem();
        endPause();
    }
    remove({2});
    EXPECT_EQ(status(), u"three was removed and plays to its end"_s);
}

TEST_F(Teller, ANewRunBeginsAfresh) {
    play();
    endItem();
    rig.press(transport::stopped);
    play();
    EXPECT_EQ(status(), u"3 items · 2 reels · 0:40"_s) << "what the last one striped is forgotten";
}

} // namespace
