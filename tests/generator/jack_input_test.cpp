#include "generator/jack_input.h"

#include <gtest/gtest.h>
#include <jack/jack.h>
#include <jack/midiport.h>

#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

using namespace vexa;
using Bytes = std::vector<std::uint8_t>;
using Clock = std::chrono::steady_clock;
using Outcome = MidiInput::Outcome;

namespace {

/// A JACK server of the test's own, without sound hardware, and what is opened on it.
class JackInputTest : public testing::Test {
protected:
    JackInputTest() {
        setenv("JACK_DEFAULT_SERVER", m_name.c_str(), 1);
        setenv("JACK_NO_AUDIO_RESERVATION", "1", 1);
    }
    ~JackInputTest() override { stopServer(SIGTERM); }

    void startServer() {
        std::vector<const char*> arguments{"jackd", "-n", m_name.c_str(), "-r",   "-d",
                                           "dummy", "-p", "256",          nullptr};
        ASSERT_EQ(posix_spawnp(&m_server, arguments[0], nullptr, nullptr,
                               const_cast<char**>(arguments.data()), environ),
                  0);
    }

    void stopServer(int signal) {
        if (m_server <= 0)
            return;
        kill(m_server, signal);
        waitpid(m_server, nullptr, 0);
        m_server = 0;
    }

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

private:
    const std::string m_name = "vexa-test-" + std::to_string(getpid());
    pid_t m_server = 0;
};

bool waitFor(const MidiInput& input) {
    pollfd polled{input.descriptor(), POLLIN, 0};
    return poll(&polled, 1, 10000) == 1;
}

/// Sends events to the input, one port buffer after the other, and returns when all are sent.
void send(const MidiInput& input, const std::vector<Bytes>& events) {
    struct Sender {
        const std::vector<Bytes>& events;
        jack_port_t* port;
        std::atomic<bool> connected = false;
        std::atomic<std::size_t> sent = 0;
    };
    auto* const client = jack_client_open("sender", JackNoStartServer, nullptr);
    ASSERT_NE(client, nullptr);
    Sender sender{events,
                  jack_port_register(client, "out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0)};
    jack_set_process_callback(
        client,
        [](jack_nframes_t frames, void* argument) {
            auto& self = *static_cast<Sender*>(argument);
            auto* const buffer = jack_port_get_buffer(self.port, frames);
            jack_midi_clear_buffer(buffer);
            while (self.connected && self.sent < self.events.size()) {
                const auto& event = self.events[self.sent];
                if (jack_midi_event_write(buffer, 0, event.data(), event.size()) != 0)
                    break;
                ++self.sent;
            }
            return 0;
        },
        &sender);
    ASSERT_EQ(jack_activate(client), 0);
    EXPECT_EQ(jack_connect(client, "sender:out", (input.name() + ":in").c_str()), 0);
    sender.connected = true;
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    while (sender.sent < events.size() && Clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(sender.sent, events.size());
    // The last buffer is read in the cycle that wrote it, or in the next.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    jack_client_close(client);
}

TEST_F(JackInputTest, IsNotThereWithoutAServer) { EXPECT_EQ(openJackInput(), nullptr); }

TEST_F(JackInputTest, HandsOnWhatIsSentWithItsArrival) {
    startServer();
    const auto input = openWhenUp();
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->name(), "Vexa Generator");
    const std::vector<Bytes> events{{0xF0, 0x7D, 0x42, 1, 0, 0, 0, 5, 0xF7}, {0xF8}, {0xF0, 0xF7}};
    const auto before = Clock::now();
    send(*input, events);
    const auto after = Clock::now();
    ASSERT_TRUE(waitFor(*input));
    std::vector<Bytes> received;
    EXPECT_EQ(input->read([&](Moment arrival, auto bytes) {
        received.emplace_back(bytes.begin(), bytes.end());
        EXPECT_GT(arrival, before);
        EXPECT_LT(arrival, after);
    }),
              Outcome::Read);
    EXPECT_EQ(received, events);
}

TEST_F(JackInputTest, TellsOfWhatItHadNoRoomFor) {
    startServer();
    const auto input = openWhenUp();
    ASSERT_NE(input, nullptr);
    send(*input, std::vector<Bytes>(100, Bytes(1000, 0x11)));
    std::size_t received = 0;
    const auto count = [&](Moment, auto bytes) { received += bytes.size(); };
    EXPECT_EQ(input->read(count), Outcome::Lost);
    EXPECT_GT(received, 60000u);
    EXPECT_EQ(received % 1000, 0u);
    EXPECT_EQ(input->read(count), Outcome::Read);
}

class JackServerDeath : public JackInputTest, public testing::WithParamInterface<int> {};

TEST_P(JackServerDeath, IsToldAndANewServerTakesTheInputAgain) {
    startServer();
    auto input = openWhenUp();
    ASSERT_NE(input, nullptr);
    stopServer(GetParam());
    ASSERT_TRUE(waitFor(*input));
    EXPECT_EQ(input->read([](Moment, auto) {}), Outcome::Gone);
    input.reset();
    EXPECT_EQ(openJackInput(), nullptr);
    startServer();
    input = openWhenUp();
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->name(), "Vexa Generator");
}

INSTANTIATE_TEST_SUITE_P(Signals, JackServerDeath, testing::Values(SIGTERM, SIGKILL));

} // namespace
