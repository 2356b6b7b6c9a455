#include "app/RunLog.h"
#include "stripe/StripeRig.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimeZone>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using From = StripeRun::From;

namespace {

const std::string heading = "row,reel,title,start,stop,real_start,real_stop,began,ended,how";

/// A logged run. Dates and times in the log are read as "now".
struct Log : testing::Test, StripeRig {
    std::vector<std::string> lines() const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto text = QString::fromUtf8(file.readAll());
        EXPECT_TRUE(text.endsWith(u"\r\n"));
        static const QRegularExpression moment(
            u"\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}(Z|[+-]\\d\\d:\\d\\d)"_s);
        text.replace(moment, u"now"_s);
        std::vector<std::string> lines;
        for (const auto& line : text.chopped(2).split(u"\r\n"_s))
            lines.push_back(line.toStdString());
        return lines;
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"run.csv"_s);
};

TEST_F(Log, HasALineForEachRowAsItEnds) {
    addItem(7, "one", 1);
    addItem(8, "two", 2);
    addItem(8, "three", 3);
    plan.useBatch = true;
    plan.pauseForReelChange = false;
    list.setSelection({1, 2});
    plan.batchMode = batchModeSelected;
    const RunLog log(path, run, list);
    EXPECT_THAT(lines(), ElementsAre(heading));
    run.play(From::startTime);
    tick(3);
    const auto two = "2,8,\"two\",02:00:00:00,02:00:00:03,02:00:00:00,02:00:00:03,now,now,complete";
    EXPECT_THAT(lines(), ElementsAre(heading, two));
    endPause();
    tick(1);
    run.stop();
    EXPECT_THAT(lines(), ElementsAre(heading, two,
                                     "3,8,\"three\",03:00:00:00,03:00:00:03,03:00:00:00,"
                                     "03:00:00:01,now,now,interrupted"));
}

TEST_F(Log, HasALineOfASingleStripe) {
    const RunLog log(path, run, list);
    plan.settings = {packed("01:00:00:00"), packed("01:00:00:03"), rate::fps25, sync::mtc};
    plan.stopTimeSet = true;
    run.play(From::startTime);
    tick(3);
    plan.stopTimeSet = false;
    run.play(From::startTime);
    tick(2);
    run.pause();
    run.stop();
    EXPECT_THAT(lines(),
                ElementsAre(heading,
                            ",,,01:00:00:00,01:00:00:03,01:00:00:00,01:00:00:03,now,now,complete",
                            ",,,01:00:00:00,,01:00:00:00,01:00:00:02,now,now,interrupted"));
}

TEST_F(Log, IsAppendedTo) {
    addItem(1, "one", 1);
    plan.useBatch = true;
    for (int runs = 0; runs < 2; ++runs) {
        const RunLog log(path, run, list);
        run.play(From::startTime);
        tick(3);
    }
    EXPECT_EQ(lines().size(), 3u) << "a heading and two runs";
}

TEST_F(Log, WhatCannotBeWrittenIsComplainedOfOnceAndTheRunGoesOn) {
    addItem(1, "one", 1);
    addItem(1, "two", 2);
    plan.useBatch = true;
    for (const auto& [file, fault] : {std::pair{u"/dev/full"_s, "No space left on device"},
                                      std::pair{folder.path(), "Is a directory"},
                                      std::pair{u"/nowhere/x.csv"_s, "No such file"}}) {
        testing::internal::CaptureStderr();
        const RunLog log(file, run, list);
        run.play(From::startTime);
        tick(3);
        endPause();
        tick(3);
        EXPECT_EQ(run.progress().phase, Phase::stopped);
        const auto complaint = testing::internal::GetCapturedStderr();
        EXPECT_THAT(complaint, HasSubstr(fault));
        EXPECT_EQ(std::ranges::count(complaint, '\n'), 1) << complaint;
    }
}

std::string titleField(const QString& title) {
    const auto text = logText({.row = 1, .item = {1, title}});
    return text.substr(4, text.find(",00:00:00:00") - 4);
}

TEST(LogText, TitlesAreQuotedAndNoFormulas) {
    EXPECT_EQ(titleField(u"plain"_s), R"("plain")");
    EXPECT_EQ(titleField(u"a, \"b\""_s), R"("a, ""b""")");
    EXPECT_EQ(titleField(u"\"\""_s), R"("""""")");
    EXPECT_EQ(titleField(u"two\nlines"_s), R"("two\x0Alines")");
    EXPECT_EQ(titleField(u"=HYPERLINK(A1)"_s), "\"'=HYPERLINK(A1)\"");
    EXPECT_EQ(titleField(u"+1"_s), R"("'+1")");
    EXPECT_EQ(titleField(u"-1"_s), R"("'-1")");
    EXPECT_EQ(titleField(u"@x"_s), R"("'@x")");
    EXPECT_EQ(titleField({}), R"("")");
}

} // namespace
