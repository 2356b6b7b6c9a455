#include "generator/Studio.h"
#include "generator/jack_unit.h"
#include "ltc/ltc_reader.h"
#include "mtc/quarter_frames.h"
#include "support/JackServer.h"

#include <gmock/gmock.h>

#include <poll.h>

#include <string>
#include <thread>
#include <vector>

using namespace vexa;
using namespace vexa::test;
using Clock = std::chrono::steady_clock;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string stop = "F0 7D 42 00 00 00 00 00 F7";
const std::string mtcSetup = "F0 7D 42 01 00 00 00 01 F7"; // 25 fps
const std::string start = "F0 7D 42 01 00 00 00 7F F7";

/// A JACK server and the units opened on it.
class JackUnitTest : public testing::Test {
protected:
    /// Opens the unit as soon as the server is up.
    static std::unique_ptr<Unit> openWhenUp(const OutputOptions& options = {}) {
        const auto deadline = Clock::now() + std::chrono::seconds(10);
        while (Clock::now() < deadline) {
            if (auto unit = openJackUnit(options))
                return unit;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return nullptr;
    }

    JackServer server;
    Hearing heard;
};

bool waitFor(const Unit& unit) {
    pollfd polled{unit.descriptor(), POLLIN, 0};
    return poll(&polled, 1, 10000) == 1;
}

/// Sends events, each given as "F0 7D 42", to the unit.
void send(const Unit& unit, const std::vector<std::string>& events) {
    const auto port = unit.name() + ":in";
    std::vector<const char*> arguments{JACK_SEND, port.c_str()};
    for (const auto& event : events)
        arguments.push_back(event.c_str());
    int status = 0;
    ASSERT_GT(waitpid(spawned(arguments), &status, 0), 0);
    EXPECT_EQ(status, 0);
}

TEST_F(JackUnitTest, IsNotThereWithoutAServer) { EXPECT_EQ(openJackUnit({}), nullptr); }

TEST_F(JackUnitTest, TellsOfMessagesHoweverTheyAreCutWithTheirArrival) {
    server.start();
    const auto unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    EXPECT_EQ(unit->name(), "Vexa Generator");
    const auto before = Clock::now();
    send(*unit, {"F0 7D 42 01 00", "F8", "00 00 05", "F7 F0 7D 42 01 00 00 00 7F F7", "F0 7D"});
    const auto after = Clock::now();
    while (heard.reports.size() < 2) {
        ASSERT_TRUE(waitFor(*unit));
        EXPECT_TRUE(unit->read(heard));
    }
    unit->finish(heard);
    ASSERT_EQ(heard.reports.size(), 3u);
    EXPECT_EQ(reportText(heard.reports[0]),
              "F0 7D 42 01 00 00 00 05 F7  setup 01:00:00:00 25 fps DTL");
    EXPECT_EQ(reportText(heard.reports[1]), "F0 7D 42 01 00 00 00 7F F7  start 01:00:00:00");
    EXPECT_EQ(reportText(heard.reports[2]), "F0 7D  malformed: cut off after byte 2");
    for (const auto i : {0, 1}) {
        EXPECT_GT(heard.reports.at(i).arrival, before);
        EXPECT_LT(heard.reports.at(i).arrival, after);
    }
    EXPECT_THAT(heard.notes, IsEmpty());
}

TEST_F(JackUnitTest, TellsOfWhatItHadNoRoomFor) {
    server.start();
    const auto unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    std::vector<std::string> messages(2000, "F0 F7");
    messages.push_back(mtcSetup);
    send(*unit, messages);
    EXPECT_TRUE(unit->read(heard));
    EXPECT_EQ(heard.reports.size(), 1024u);
    EXPECT_THAT(heard.notes, ElementsAre("lost: messages came faster than they could be read"));
    send(*unit, {start});
    EXPECT_TRUE(unit->read(heard));
    EXPECT_EQ(heard.reports.back().reply, Reply::done) << "the earlier setup had no effect";
    EXPECT_EQ(heard.notes.size(), 1u);
}

struct Clocking {
    const char* sampleRate;
    const char* period;
};

class Signals : public JackUnitTest, public testing::WithParamInterface<Clocking> {};

TEST_P(Signals, ComeAtTheSamplesOfTheMessages) {
    const std::size_t second = std::stoul(GetParam().sampleRate);
    const std::size_t frame = second / 25;
    const std::size_t leadIn = second / 2000;
    server.start(GetParam().sampleRate, GetParam().period);
    const auto unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    // Four runs of slightly more than five frames, at samples that share no divisor with any
    // period.
    std::vector<std::string> events;
    std::vector<std::size_t> starts;
    for (std::size_t run = 0; run < 4; ++run) {
        const auto at = second / 2 * (run + 1) + 37 * run + 1;
        starts.push_back(at + 11);
        events.push_back(std::to_string(at) + " " + mtcSetup);
        events.push_back(std::to_string(at + 11) + " " + start);
        events.push_back(std::to_string(at + 11 + leadIn + 5 * frame + 3) + " " + stop);
    }
    const auto recording = Studio(3 * second, events).recording();
    const auto& rate = frameRateForCode(rate::fps25);

    std::vector<ReadWord> words;
    auto time = recording.mtc.begin();
    for (const auto at : starts) {
        for (std::uint64_t i = 0; i < 6; ++i)
            words.push_back({{1, 0, 0, i}, false});
        // The lead-in leaves zero one sample after the start.
        EXPECT_EQ(recording.ltc[at - 1], 0.0f);
        EXPECT_EQ(recording.ltc[at], 0.0f);
        EXPECT_GT(recording.ltc[at + 1], 0.0f);

        ASSERT_NE(time, recording.mtc.end());
        EXPECT_EQ(*time++, std::to_string(at - 11) + " F0 7F 7F 01 01 21 00 00 00 F7");
        QuarterFrames quarterFrame({1, 0, 0, 0}, rate, static_cast<std::uint32_t>(second));
        for (int i = 0; i < 21; ++i, quarterFrame.advance()) {
            ASSERT_NE(time, recording.mtc.end());
            SysEx bytes{{quarterFrame.message()[0], quarterFrame.message()[1]}, 2};
            EXPECT_EQ(*time++,
                      std::to_string(at + leadIn + quarterFrame.sample()) + " " + hexText(bytes));
        }
    }
    EXPECT_EQ(time, recording.mtc.end());
    EXPECT_EQ(wordsIn(recording.ltc, static_cast<std::uint32_t>(second), rate), words);
    EXPECT_TRUE(unit->read(heard));
    ASSERT_EQ(heard.reports.size(), 12u);
    EXPECT_EQ(heard.reports[2].stoppedAt, (Timecode{1, 0, 0, 5}));
    EXPECT_EQ(unit->signal().time, (Timecode{1, 0, 0, 5}));
}

INSTANTIATE_TEST_SUITE_P(Clocks, Signals,
                         testing::Values(Clocking{"48000", "256"}, Clocking{"44100", "1024"},
                                         Clocking{"96000", "128"}));

TEST_F(JackUnitTest, GoesOnWhenThePeriodChanges) {
    server.start();
    const auto unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    const auto recording = Studio(96000, {"1000 " + mtcSetup, "1001 " + start, "24000 period 64",
                                          "48000 period 1024", "72000 period 128"})
                               .recording();
    std::vector<ReadWord> words;
    for (std::uint64_t i = 0; i < 49; ++i)
        words.push_back({{1, 0, i / 25, i % 25}, false});
    EXPECT_EQ(wordsIn(recording.ltc, 48000, frameRateForCode(rate::fps25)), words);
}

TEST_F(JackUnitTest, GoesOnWhereItLeftOffWhenTheServerIsLate) {
    server.start();
    const auto unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    const auto recording =
        Studio(60000, {"1000 " + mtcSetup, "1001 " + start, "20000 late", "40000 " + stop})
            .recording();
    std::vector<ReadWord> words;
    for (std::uint64_t i = 0; i < 21; ++i)
        words.push_back({{1, 0, 0, i}, false});
    EXPECT_EQ(wordsIn(recording.ltc, 48000, frameRateForCode(rate::fps25)), words);
    EXPECT_TRUE(unit->read(heard));
    ASSERT_EQ(heard.reports.size(), 3u);
    EXPECT_GE(heard.reports[2].xruns, 1u);
    EXPECT_GE(unit->signal().xruns, heard.reports[2].xruns);
}

TEST_F(JackUnitTest, ConnectsToNothingUnlessTold) {
    server.start();
    const auto unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    EXPECT_TRUE(unit->read(heard));
    EXPECT_THAT(Studio(100, {}).recording().connected, ElementsAre("recorder:ltc"));
    EXPECT_THAT(heard.notes, IsEmpty());
}

TEST_F(JackUnitTest, ConnectsToPortsAsTheyCome) {
    server.start();
    const auto unit =
        openWhenUp({-18, {"system:playback_2", "recorder:ltc", "recorder:mtc", "\x1B[2J"}});
    ASSERT_NE(unit, nullptr);
    EXPECT_TRUE(unit->read(heard));
    EXPECT_THAT(heard.notes, ElementsAre("connected: system:playback_2",
                                         "not connected: no sound input recorder:ltc yet",
                                         "not connected: no sound input recorder:mtc yet",
                                         "not connected: no sound input \\x1B[2J yet"));
    heard.notes.clear();
    Studio studio(100, {});
    while (heard.notes.empty()) {
        ASSERT_TRUE(waitFor(*unit));
        EXPECT_TRUE(unit->read(heard));
    }
    EXPECT_THAT(heard.notes, ElementsAre("connected: recorder:ltc"));
    EXPECT_THAT(studio.recording().connected, ElementsAre("system:playback_2", "recorder:ltc"));
}

class JackServerDeath : public JackUnitTest, public testing::WithParamInterface<int> {};

TEST_P(JackServerDeath, IsToldAndANewServerTakesTheUnitAgain) {
    server.start();
    auto unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    send(*unit, {mtcSetup, start});
    server.stop(GetParam());
    while (unit->read(heard))
        ASSERT_TRUE(waitFor(*unit));
    unit->finish(heard);
    EXPECT_EQ(heard.reports.size(), 2u);
    unit.reset();
    EXPECT_EQ(openJackUnit({}), nullptr);
    server.start("44100", "128");
    unit = openWhenUp();
    ASSERT_NE(unit, nullptr);
    EXPECT_EQ(unit->name(), "Vexa Generator");
    const auto recording = Studio(22050, {"1000 " + mtcSetup, "1001 " + start}).recording();
    EXPECT_EQ(wordsIn(recording.ltc, 44100, frameRateForCode(rate::fps25)).at(0),
              (ReadWord{{1, 0, 0, 0}, false}));
}

INSTANTIATE_TEST_SUITE_P(Signals, JackServerDeath, testing::Values(SIGTERM, SIGKILL));

} // namespace
