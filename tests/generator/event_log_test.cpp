#include "generator/event_log.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace vexa;

namespace {

const Moment moment{std::chrono::nanoseconds(12345678901999)};

TEST(EventLog, PrintsMomentsInMicroseconds) {
    EXPECT_EQ(momentText(moment), "12345.678901");
    EXPECT_EQ(momentText(Moment(std::chrono::microseconds(1))), "0.000001");
    EXPECT_EQ(momentText(Moment(std::chrono::seconds(7))), "7.000000");
}

TEST(EventLog, WritesTheSameLinesToBothStreams) {
    std::ostringstream out;
    std::ostringstream copy;
    {
        EventLog log(out, false, copy);
        EXPECT_FALSE(log.showsStatus());
        log.note("ready");
        log.status("stopped");
        log.event(moment, "stop");
    }
    EXPECT_EQ(out.str(), "ready\n12345.678901  stop\n");
    EXPECT_EQ(copy.str(), out.str());
}

TEST(EventLog, KeepsTheStatusBelowTheLinesOfATerminal) {
    std::ostringstream out;
    std::ostringstream copy;
    {
        EventLog log(out, true, copy);
        EXPECT_TRUE(log.showsStatus());
        log.status("stopped");
        log.status("stopped");
        log.event(moment, "stop");
        log.status("set up");
    }
    EXPECT_EQ(out.str(), "\r\x1B[Kstopped"
                         "\r\x1B[K12345.678901  stop\nstopped"
                         "\r\x1B[Kset up"
                         "\r\x1B[K");
    EXPECT_EQ(copy.str(), "12345.678901  stop\n");
}

TEST(EventLog, FillsTheCopyToItsBoundAndSaysSoOnce) {
    std::ostringstream out;
    std::ostringstream copy;
    EventLog log(out, false, copy);
    const std::string line(999, 'x');
    constexpr auto lines = EventLog::mostCopied / 1000;
    for (std::size_t i = 0; i < lines + 10; ++i)
        log.note(line);
    EXPECT_EQ(out.str().size(), (lines + 10) * 1000);
    EXPECT_LE(copy.str().size(), EventLog::mostCopied);
    EXPECT_GT(copy.str().size(), EventLog::mostCopied - 2000);
    EXPECT_TRUE(copy.str().ends_with("x\nfull: nothing more is written here\n"));
}

} // namespace
