#include "generator/Studio.h"
#include "generator/jack_ltc.h"
#include "ltc/ltc_reader.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <thread>

using namespace vexa;
using namespace vexa::test;
using Clock = std::chrono::steady_clock;

namespace {

std::unique_ptr<LtcOutput> openWhenUp() {
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    while (Clock::now() < deadline) {
        if (auto output = openJackLtc({}))
            return output;
        std::this_thread::sleep_for(
            std::chrono::milliseconds(20)); // a server does not say it is up
    }
    return nullptr;
}

TEST(JackLtc, IsNotThereWithoutAServer) {
    const JackServer server;
    EXPECT_EQ(openJackLtc({}), nullptr);
}

TEST(JackLtc, RunsFromOneMomentToAnother) {
    JackServer server;
    server.start();
    const auto output = openWhenUp();
    ASSERT_NE(output, nullptr);
    Studio studio(4 * 48000, {});
    const auto now = Clock::now();
    const auto& rate = frameRateForCode(rate::fps25);
    output->start({{1, 0, 0, 0}, rate}, now + std::chrono::seconds(1));
    output->finish(now + std::chrono::milliseconds(1410));
    // A late start takes effect at once.
    output->start({{2, 0, 0, 0}, rate, 3}, now + std::chrono::seconds(2));
    output->start({{3, 0, 0, 0}, rate, 3}, now - std::chrono::seconds(1));
    const auto words = wordsIn(studio.recording().ltc, 48000, rate);

    // Allows for a slightly slower or faster clock, and for periods that a busy server skips.
    std::size_t i = 0;
    for (; i < words.size() && words[i].time.hours == 1; ++i)
        EXPECT_EQ(words[i], (ReadWord{{1, 0, 0, i}, false}));
    EXPECT_GE(i, 5u);
    EXPECT_LE(i, 12u);
    ASSERT_GE(words.size(), i + 2);
    EXPECT_EQ(words.back(), (ReadWord{{3, 0, 0, 2}, false}));
    EXPECT_EQ(output->signal().time, (Timecode{3, 0, 0, 2}));
}

TEST(JackLtc, TellsOfTheServersEnd) {
    JackServer server;
    server.start();
    const auto output = openWhenUp();
    ASSERT_NE(output, nullptr);
    server.stop(SIGTERM);
    Hearing heard;
    while (output->read(heard)) {
        pollfd polled{output->descriptor(), POLLIN, 0};
        ASSERT_EQ(poll(&polled, 1, 10000), 1);
    }
}

} // namespace
