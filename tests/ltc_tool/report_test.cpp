#include "ltc_tool/report.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::ltc_tool;

namespace {

class Report : public testing::Test {
protected:
    Report() {
        Stretch stretch;
        stretch.first = {1, 0, 0, 0};
        stretch.last = {1, 0, 9, 24};
        stretch.rate = &frameRateForCode(rate::fps25);
        stretch.frames = 250;
        stretch.end = 480000;
        stretch.peak = 0.12589;
        stretch.userBits = 0x12;
        TapeContents tape;
        tape.name = "a.wav";
        tape.length = 480048;
        tape.stretches = {stretch};
        m_findings.tapes = {tape};
        TapeRow row;
        row.number = 3;
        row.reel = 12;
        row.title = "One, two";
        row.start = {1, 0, 0, 0};
        row.stop = {1, 0, 10, 0};
        row.rate = &frameRateForCode(rate::fps25);
        m_rows = {row};
    }

    void compareWithRows() {
        m_findings.rows = m_rows;
        m_findings.verdict = compare(m_rows, m_findings.tapes, 0.0005);
    }

    Findings m_findings;
    std::vector<TapeRow> m_rows;
};

TEST_F(Report, TellsWhatIsOnTheTape) {
    EXPECT_TRUE(isGood(m_findings));
    EXPECT_EQ(reportText(m_findings),
              "a.wav: 0:00:10.001, 48000 Hz\n"
              "Place        First        Last         Frames  Rate    Level  Speed     User bits  "
              "Unread\n"
              "0:00:00.000  01:00:00:00  01:00:09:24  250     25 fps  -18.0  +0.000 %  00000012   "
              "0\n"
              "\n"
              "1 stretch, 0 faults\n");
}

TEST_F(Report, TellsOfARowThatIsWhole) {
    compareWithRows();
    EXPECT_TRUE(isGood(m_findings));
    EXPECT_NE(reportText(m_findings)
                  .find("Row  Reel  Title     Start        Stop         Rate    Found  Place\n"
                        "3    12    One, two  01:00:00:00  01:00:10:00  25 fps  whole  "
                        "0:00:00.000\n"
                        "\n"
                        "1 row: 1 whole, 0 with faults, 0 missing; 0 on no row\n"),
              std::string::npos);
}

TEST_F(Report, TellsOfFaultsAndOfWhatIsOnNoRow) {
    m_rows[0].start = {1, 0, 2, 0};
    compareWithRows();
    m_findings.verdict.rows[0].faults = {{TapeFault::Kind::unread, 0, 96000, {1, 0, 3, 0}, {}, 1}};
    EXPECT_FALSE(isGood(m_findings));
    const auto text = reportText(m_findings);
    EXPECT_NE(text.find("Row 3:\n    0:00:02.000  1 frame unread, 01:00:03:00\n"),
              std::string::npos);
    EXPECT_NE(text.find("On no row:\n    0:00:00.000  01:00:00:00 to 01:00:01:24\n"),
              std::string::npos);
    EXPECT_NE(text.find("1 row: 0 whole, 1 with faults, 0 missing; 1 on no row\n"),
              std::string::npos);
}

TEST_F(Report, ShowsTheFirstOfManyFaults) {
    m_findings.faults.assign(30, {TapeFault::Kind::unread, 0, 0, {1, 0, 3, 0}, {}, 1});
    EXPECT_FALSE(isGood(m_findings));
    EXPECT_NE(reportText(m_findings).find("    ... and 10 more\n"), std::string::npos);
}

TEST_F(Report, WithoutTimecodeNothingIsGood) {
    m_findings.tapes[0].stretches.clear();
    EXPECT_FALSE(isGood(m_findings));
    EXPECT_NE(reportText(m_findings).find("  no timecode\n"), std::string::npos);
}

TEST_F(Report, ARecordingThatCannotBeReadToItsEndIsNotGood) {
    m_findings.tapes[0].readError = "broken";
    EXPECT_FALSE(isGood(m_findings));
    EXPECT_NE(reportText(m_findings).find("  incomplete: broken\n"), std::string::npos);
}

TEST_F(Report, RowsThatCannotBeOnATapeAreNotGood) {
    compareWithRows();
    m_findings.skipped = {"Row 4 cannot be on a tape: FSK has no form in software"};
    EXPECT_FALSE(isGood(m_findings));
    EXPECT_NE(reportText(m_findings).find(m_findings.skipped[0] + '\n'), std::string::npos);
}

TEST_F(Report, KeepsItAsCommaSeparatedValues) {
    compareWithRows();
    EXPECT_EQ(reportCsv(m_findings),
              "kind,recording,place,row,reel,title,first,last,frames,rate,drop-frame,level dBFS,"
              "speed %,user bits,text\n"
              "stretch,a.wav,0:00:00.000,,,,01:00:00:00,01:00:09:24,250,25 fps,0,-18.0,+0.000,"
              "00000012,0 unread\n"
              "row,a.wav,0:00:00.000,3,12,\"One, two\",01:00:00:00,01:00:09:24,250,25 fps,0,,,,"
              "whole\n");
}

} // namespace
