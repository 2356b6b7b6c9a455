#include "app/run_report.h"
#include "stripe/StripeRig.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;
using From = StripeRun::From;
using Presence = DestinationStatus::Presence;

namespace {

struct Report : testing::Test, StripeRig {
    std::string line() { return progressText(reportOf(run, times)); }
    /// The value of a key; undefined if there is none.
    QJsonValue value(const char* key, const DestinationStatus& status = {}) {
        const auto line = progressJson(reportOf(run, times), status);
        EXPECT_FALSE(line.contains('\n'));
        const auto document = QJsonDocument::fromJson(line);
        EXPECT_TRUE(document.isObject()) << line.constData();
        return document.object().value(QLatin1String(key));
    }
    void addItem(std::uint64_t reel, const QString& title, const char* start, const char* stop,
                 std::uint64_t rate) {
        list.addItemWithReel(reel, title, {packed(start), packed(stop), rate, sync::dtl});
        plan.useBatch = true;
    }
    void addItems() {
        addItem(1, u"Part one"_s, "01:00:00:00", "01:04:10:00", rate::fps25);
        addItem(2, u"a\n\u202eb"_s, "02:00:00:00", "03:00:00:00", rate::fps30Drop);
        addItem(2, {}, "03:00:00:00", "03:00:01:00", rate::fps30);
    }

    RunTimes times{run};
};

TEST_F(Report, OfAStripeIsItsTimeAndWhatIsLeft) {
    plan.settings = {packed("01:00:00:00"), packed("01:04:10:00"), rate::fps25, sync::mtc};
    run.play(From::startTime);
    EXPECT_EQ(line(), "01:00:00:00  01:00:00:00 on, 25 fps, MTC");
    EXPECT_TRUE(value("itemLeft").isUndefined());
    EXPECT_TRUE(value("stop").isUndefined());
    plan.stopTimeSet = true;
    tick(25);
    EXPECT_EQ(line(), "01:00:01:00  4:09 left  01:00:00:00 to 01:04:10:00, 25 fps, MTC");
    EXPECT_EQ(value("state"), u"playing"_s);
    EXPECT_EQ(value("time"), u"01:00:01:00"_s);
    EXPECT_EQ(value("start"), u"01:00:00:00"_s);
    EXPECT_EQ(value("stop"), u"01:04:10:00"_s);
    EXPECT_EQ(value("rate"), u"25 fps"_s);
    EXPECT_EQ(value("type"), u"MTC"_s);
    EXPECT_EQ(value("itemLeft"), 249);
    EXPECT_EQ(value("runLeft"), 249);
    EXPECT_EQ(value("reelChanges"), 0);
    EXPECT_TRUE(value("item").isUndefined());
    EXPECT_TRUE(value("pauseLeft").isUndefined());
    run.pause();
    EXPECT_EQ(value("state"), u"paused"_s);
    run.stop();
    EXPECT_EQ(value("state"), u"stopped"_s);
}

TEST_F(Report, OfABatchRunNamesTheItemAndTheWholeRun) {
    addItems();
    run.play(From::startTime);
    EXPECT_EQ(line(), "01:00:00:00  4:10 left, 1:04:21 of the run + reel changes  "
                      "item 1 of 3: Part one  01:00:00:00 to 01:04:10:00, 25 fps, DTL");
    EXPECT_EQ(value("item"), 1);
    EXPECT_EQ(value("items"), 3);
    EXPECT_EQ(value("reel"), 1);
    EXPECT_EQ(value("title"), u"Part one"_s);
    EXPECT_EQ(value("reelChanges"), 1);
}

TEST_F(Report, BetweenItemsIsOfTheNextOne) {
    addItems();
    run.play(From::startTime);
    tick(250 * 25);
    EXPECT_EQ(value("state"), u"between items"_s);
    EXPECT_EQ(value("item"), 2);
    EXPECT_EQ(value("pauseLeft"), 5);
    EXPECT_EQ(value("rate"), u"30 df"_s);
    EXPECT_TRUE(value("itemLeft").isUndefined());
    endPause();
    EXPECT_EQ(value("state"), u"reel due"_s);
    EXPECT_EQ(value("item"), 2);
    EXPECT_EQ(value("reel"), 2);
    EXPECT_EQ(value("title"), u"a\n\u202eb"_s);
    run.reelLoaded();
    EXPECT_NE(line().find(R"(item 2 of 3: a\x0A\u202Eb  02:)"), std::string::npos) << line();
}

TEST_F(Report, AnItemWithoutATitleSaysSo) {
    addItem(1, {}, "01:00:00:00", "01:00:01:00", rate::fps24);
    run.play(From::startTime);
    EXPECT_EQ(line(), "01:00:00:00  0:01 left, 0:01 of the run  item 1 of 1: (no title)  "
                      "01:00:00:00 to 01:00:01:00, 24 fps, DTL");
}

TEST_F(Report, TheDestinationIsToldAsItIsKnown) {
    EXPECT_TRUE(value("destination").isUndefined());
    EXPECT_TRUE(value("destination", {Presence::none, {}, {}}).isUndefined());
    const DestinationStatus there{
        Presence::there, "Box \"1\"", {{DestinationStatus::Message::start, 0x01000000}}};
    EXPECT_EQ(value("destination", there), u"Box \"1\""_s);
    EXPECT_EQ(value("destinationThere", there), true);
    EXPECT_EQ(value("sent", there), u"start 01:00:00:00"_s);
    EXPECT_EQ(value("destinationThere", {Presence::away, "Box", {}}), false);
    EXPECT_TRUE(value("sent", {Presence::away, "Box", {}}).isUndefined());
}

} // namespace
