#include "generator/hex_bytes.h"
#include "generator/jack_input.h"
#include "support/JackServer.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <string>
#include <thread>
#include <vector>

using namespace vexa;
using namespace vexa::test;
using Clock = std::chrono::steady_clock;
using Outcome = MidiInput::Outcome;

namespace {

/// A JACK server, and what is opened on it.
class JackInputTest : public testing::Test {
protected:
    /// Opens the input as soon as the server is up.
    static std::unique_ptr<MidiInput> openWhenUp() {
        const auto deadline = Clock::now() + std::chrono::seconds(10);
        while (Clock::now() < deadline) {
            if (auto input = openJackInput())
                return input;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return nullptr;
    }

    JackServer server;
};

bool waitFor(const MidiInput& input) {
    pollfd polled{input.descriptor(), POLLIN, 0};
    return poll(&polled, 1, 10000) == 1;
}

/// Sends events, each given as "F0 7D 42", to the input.
void send(const MidiInput& input, const std::vector<std::string>& events) {
    const auto port = input.name() + ":in";
    std::vector<const char*> arguments{JACK_SEND, port.c_str()};
    for (const auto& event : events)
        arguments.push_back(event.c_str());
    int status = 0;
    ASSERT_GT(waitpid(spawned(arguments), &status, 0), 0);
    EXPECT_EQ(status, 0);
}

TEST_F(JackInputTest, IsNotThereWithoutAServer) { EXPECT_EQ(openJackInput(), nullptr); }

TEST_F(JackInputTest, HandsOnWhatIsSentWithItsArrival) {
    server.start();
    const auto input = openWhenUp();
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->name(), "Vexa Generator");
    const auto before = Clock::now();
    send(*input, {"F0 7D 42 01 00 00 00 05 F7", "F8", "F0 F7"});
    const auto after = Clock::now();
    std::vector<std::uint8_t> received;
    ASSERT_TRUE(waitFor(*input));
    const auto outcome = input->read([&](Moment arrival, auto bytes) {
        received.insert(received.end(), bytes.begin(), bytes.end());
        EXPECT_GT(arrival, before);
        EXPECT_LT(arrival, after);
    });
    EXPECT_EQ(outcome, Outcome::Read);
    EXPECT_EQ(received, bytesFromHex("F0 7D 42 01 00 00 00 05 F7 F8 F0 F7"));
}

TEST_F(JackInputTest, TellsOfWhatItHadNoRoomFor) {
    server.start();
    const auto input = openWhenUp();
    ASSERT_NE(input, nullptr);
    std::string event;
    for (int i = 0; i < 1000; ++i)
        event += "11 ";
    send(*input, std::vector<std::string>(100, event));
    std::size_t received = 0;
    const auto count = [&](Moment, auto bytes) { received += bytes.size(); };
    EXPECT_EQ(input->read(count), Outcome::Lost);
    EXPECT_EQ(received, 16000u) << "not as many whole events as there is room for";
    EXPECT_EQ(input->read(count), Outcome::Read);
}

class JackServerDeath : public JackInputTest, public testing::WithParamInterface<int> {};

TEST_P(JackServerDeath, IsToldAndANewServerTakesTheInputAgain) {
    server.start();
    auto input = openWhenUp();
    ASSERT_NE(input, nullptr);
    server.stop(GetParam());
    ASSERT_TRUE(waitFor(*input));
    EXPECT_EQ(input->read([](Moment, auto) {}), Outcome::Gone);
    input.reset();
    EXPECT_EQ(openJackInput(), nullptr);
    server.start();
    input = openWhenUp();
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->name(), "Vexa Generator");
}

INSTANTIATE_TEST_SUITE_P(Signals, JackServerDeath, testing::Values(SIGTERM, SIGKILL));

} // namespace
