#include "midi/BackgroundMidiSystem.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/jack/JackMidiDriver.h"
#include "support/CleanDefaults.h"
#include "support/JackServer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gmock/gmock.h>

#include <fcntl.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <stdexcept>
#include <thread>
#include <utility>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSubsetOf;
using testing::StartsWith;
using namespace std::chrono_literals;
using namespace std::string_literals;

namespace {

const std::string stopFrame = "F0 7D 42 00 00 00 00 00 F7";

/// A receiver on the server for the lifetime of this object.
class Receiver {
public:
    explicit Receiver(const char* name, const char* alias = nullptr) {
        int input[2];
        int output[2];
        EXPECT_EQ(pipe2(input, O_CLOEXEC) | pipe2(output, O_CLOEXEC), 0);
        std::vector<const char*> arguments{JACK_RECEIVE, name};
        if (alias)
            arguments.push_back(alias);
        m_pid = spawned(arguments, {input[0], output[1]});
        close(input[0]);
        close(output[1]);
        m_input = input[1];
        m_output = fdopen(output[0], "r");
        std::setvbuf(m_output, nullptr, _IONBF, 0); // or poll() could miss a buffered line
        if (next() == "ready")
            return;
        leave();
        throw std::runtime_error(std::string(name) + " is not ready");
    }
    ~Receiver() { leave(); }
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    /// Waits for the next message; empty if none comes or the receiver has ended.
    std::string next() {
        constexpr int patience = 60000; // ms
        pollfd polled{fileno(m_output), POLLIN, 0};
        char line[256];
        if (poll(&polled, 1, patience) != 1 || !std::fgets(line, sizeof line, m_output))
            return {};
        const std::string text(line);
        return text.substr(0, text.find_last_not_of(" \n") + 1);
    }

    /// Takes the receiver off the server; returns the messages since the last next().
    std::vector<std::string> leave() {
        std::vector<std::string> rest;
        if (m_pid == 0)
            return rest;
        close(m_input);
        for (auto line = next(); !line.empty(); line = next())
            rest.push_back(line);
        if (!rest.empty() && rest.back().starts_with("irregular ")) {
            m_wasRegular = rest.back() == "irregular 0";
            rest.pop_back();
        }
        std::fclose(m_output);
        waitpid(m_pid, nullptr, 0);
        m_pid = 0;
        return rest;
    }

    /// After leave(): whether the receiver took part in every period.
    bool wasRegular() const { return m_wasRegular; }

private:
    pid_t m_pid = 0;
    bool m_wasRegular = false;
    int m_input = -1;
    std::FILE* m_output = nullptr;
};

/// The program's MIDI side, from launch to end.
class Program {
public:
    Program() {
        m_system.numberOfDestinations(); // no event loop reports the first list
        Vexa_MIDI_Manager::setMidiSystem(&m_system);
    }
    ~Program() { Vexa_MIDI_Manager::setMidiSystem(nullptr); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    static Vexa_MIDI_Manager& manager() { return Vexa_MIDI_Manager::sharedMidiManager(); }

    static void awaitList(const std::vector<std::string>& names) {
        listWhere([&](const auto& list) { return list == names; });
    }

    static void choose(const std::string& name) {
        const auto list =
            listWhere([&](const auto& names) { return std::ranges::count(names, name) > 0; });
        manager().connectToDestinationAtIndex(std::ranges::find(list, name) - list.begin());
        manager().writePrefs();
    }

    /// Waits until the status starts with this text, whatever the age of the last message.
    static std::string statusOnce(const std::string& beginning) {
        std::string text;
        const auto isThere = [&] {
            text = statusText(manager().status(), std::chrono::steady_clock::now());
            return text.starts_with(beginning);
        };
        const QDeadlineTimer deadline(60s);
        while (!isThere() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        return text;
    }

private:
    /// A driver that is joining a server answers late; until then the previous list serves.
    template<class Wanted>
    static std::vector<std::string> listWhere(const Wanted& isWanted) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (std::chrono::steady_clock::now() < deadline) {
            if (auto list = manager().destinationList(); isWanted(list))
                return list;
            std::this_thread::yield();
        }
        throw std::runtime_error("the list of destinations is not as expected");
    }

    BackgroundMidiSystem m_system{[] { return std::make_unique<JackMidiDriver>(); }};
};

struct JackMidi : testing::Test {
    JackMidi() { server.start(); }

    CleanDefaults clean;
    JackServer server;
};

TEST_F(JackMidi, ListsThePortsInTheServersOrder) {
    const Receiver beta("beta");
    const Receiver alpha("alpha");
    const Program program;
    EXPECT_THAT(Program::manager().destinationList(), ElementsAre("beta:in", "alpha:in"));
    const auto ids = Program::manager().destinationIDs();
    EXPECT_THAT(Program::manager().destinationList(), ElementsAre("beta:in", "alpha:in"));
    EXPECT_EQ(Program::manager().destinationIDs(), ids);
    EXPECT_NE(ids.at(0), ids.at(1));
}

TEST_F(JackMidi, TheChoiceIsRememberedAtTheNextLaunch) {
    Receiver alpha("alpha");
    Receiver beta("beta");
    {
        const Program program;
        Program::choose("beta:in");
        EXPECT_EQ(beta.next(), stopFrame);
    }
    {
        const Program program;
        EXPECT_EQ(Program::manager().indexOfDestination(), 1);
        EXPECT_EQ(beta.next(), stopFrame);
    }
    EXPECT_THAT(alpha.leave(), IsEmpty());
    EXPECT_THAT(beta.leave(), IsEmpty());
}

TEST_F(JackMidi, TheChoiceSurvivesAServerRestartAndAnotherOrderOfPorts) {
    {
        const Receiver alpha("alpha");
        Receiver beta("beta");
        const Program program;
        Program::choose("beta:in");
        EXPECT_EQ(beta.next(), stopFrame);
    }
    server.stop(SIGTERM);
    server.start();
    Receiver beta("beta");
    Receiver alpha("alpha");
    const Program program;
    EXPECT_EQ(Program::manager().indexOfDestination(), 0);
    EXPECT_EQ(beta.next(), stopFrame);
    EXPECT_THAT(alpha.leave(), IsEmpty());
}

TEST_F(JackMidi, AReturningReceiverGetsTheNextMessageAndNoOtherReceiverDoes) {
    Receiver alpha("alpha");
    auto beta = std::make_unique<Receiver>("beta");
    std::unique_ptr<Receiver> gamma;
    {
        const Program program;
        Program::choose("beta:in");
        EXPECT_EQ(beta->next(), stopFrame);
        beta.reset();
        gamma = std::make_unique<Receiver>("gamma"); // takes beta's place on the server
        Program::manager().sendStopMessage();
        Program::awaitList({"alpha:in", "gamma:in"});
        beta = std::make_unique<Receiver>("beta");
        Program::manager().sendSetupMessageStart(0x01020304, 1, 0);
        EXPECT_EQ(beta->next(), "F0 7D 42 01 02 03 04 01 F7");
        EXPECT_EQ(beta->next(), "F0 7D 42 01 02 03 04 7F F7");
    }
    EXPECT_THAT(alpha.leave(), IsEmpty());
    EXPECT_THAT(gamma->leave(), IsEmpty());
}

TEST_F(JackMidi, TheStatusShowsAsSentExactlyWhatTheReceiverSaw) {
    auto beta = std::make_unique<Receiver>("beta");
    const Program program;
    Program::choose("beta:in");
    EXPECT_EQ(beta->next(), stopFrame);
    EXPECT_THAT(Program::statusOnce("beta:in · stop"), StartsWith("beta:in · stop · "));
    Program::manager().sendSetupMessageStart(0x01020304, 1, 0);
    EXPECT_EQ(beta->next(), "F0 7D 42 01 02 03 04 01 F7");
    EXPECT_EQ(beta->next(), "F0 7D 42 01 02 03 04 7F F7");
    EXPECT_THAT(Program::statusOnce("beta:in · start"), StartsWith("beta:in · start 01:02:03:04"));

    EXPECT_THAT(beta->leave(), IsEmpty());
    EXPECT_EQ(Program::statusOnce("beta:in is"), "beta:in is not there");
    Program::manager().sendStopMessage();
    Program::awaitList({}); // answered after the message is sent
    beta = std::make_unique<Receiver>("beta");
    EXPECT_THAT(Program::statusOnce("beta:in ·"), StartsWith("beta:in · start 01:02:03:04 · "))
        << "the stop was lost";
    Program::manager().sendSetupMessageStart(0x05060708, 1, 0);
    EXPECT_EQ(beta->next(), "F0 7D 42 05 06 07 08 01 F7");
    EXPECT_EQ(beta->next(), "F0 7D 42 05 06 07 08 7F F7");
    EXPECT_THAT(Program::statusOnce("beta:in · start 05"),
                StartsWith("beta:in · start 05:06:07:08"));

    server.stop(SIGKILL);
    EXPECT_EQ(Program::statusOnce("beta:in is"), "beta:in is not there");
}

TEST_F(JackMidi, SwitchingTheDestinationOftenLosesAndMisdirectsNothing) {
    std::map<std::string, std::vector<std::string>> sent;
    Receiver alpha("alpha");
    Receiver beta("beta");
    {
        const Program program;
        for (unsigned second = 0; second < 50; ++second) {
            const std::string name = second % 2 ? "alpha:in" : "beta:in";
            Program::choose(name);
            Program::manager().sendSetupMessageStart(second << 8, 1, 0);
            char time[] = "F0 7D 42 00 00 .. 00";
            std::snprintf(time, sizeof time, "F0 7D 42 00 00 %02X 00", second);
            for (const auto& frame : {stopFrame, time + " 01 F7"s, time + " 7F F7"s})
                sent[name].push_back(frame);
        }
        EXPECT_THAT(Program::statusOnce("alpha:in · start 00:00:49:00"), StartsWith("alpha:in"));
    }
    for (auto& [name, receiver] : {std::pair<std::string, Receiver&>{"alpha:in", alpha},
                                   std::pair<std::string, Receiver&>{"beta:in", beta}}) {
        const auto arrived = receiver.leave();
        EXPECT_THAT(arrived, IsSubsetOf(sent[name])) << name;
        // A server that is kept waiting too long goes on without the receiver.
        EXPECT_TRUE(arrived == sent[name] || !receiver.wasRegular())
            << name << " lost " << sent[name].size() - arrived.size();
    }
}

TEST_F(JackMidi, MessagesQueuedWhileTheServerHangsReachNoOtherDestination) {
    Receiver alpha("alpha");
    Receiver beta("beta");
    const Program program;
    Program::choose("alpha:in");
    EXPECT_EQ(alpha.next(), stopFrame);
    server.hang();
    Program::manager().sendSetupMessageStart(0x01020304, 1, 0);
    Program::choose("beta:in");
    EXPECT_EQ(Program::statusOnce("beta:in is"), "beta:in is not there") << "its stop is lost";
    server.resume();
    EXPECT_EQ(alpha.next(), "F0 7D 42 01 02 03 04 01 F7");
    EXPECT_EQ(alpha.next(), "F0 7D 42 01 02 03 04 7F F7");
    Program::manager().sendSetupMessageStart(0x05060708, 1, 0);
    EXPECT_EQ(beta.next(), "F0 7D 42 05 06 07 08 01 F7");
    EXPECT_EQ(beta.next(), "F0 7D 42 05 06 07 08 7F F7");
    EXPECT_THAT(alpha.leave(), IsEmpty());
    EXPECT_THAT(beta.leave(), IsEmpty());
}

class JackMidiServerLoss : public JackMidi, public testing::WithParamInterface<int> {};

TEST_P(JackMidiServerLoss, MessagesArriveAgainOnTheNextServer) {
    auto beta = std::make_unique<Receiver>("beta");
    const Program program;
    Program::choose("beta:in");
    EXPECT_EQ(beta->next(), stopFrame);
    server.stop(GetParam());
    beta.reset();
    Program::manager().sendStopMessage();
    server.start();
    const Receiver alpha("alpha");
    beta = std::make_unique<Receiver>("beta");
    Program::awaitList({"alpha:in", "beta:in"});
    Program::manager().sendSetupMessageStart(0, 3, 1);
    EXPECT_EQ(beta->next(), "F0 7D 42 00 00 00 00 07 F7");
}

INSTANTIATE_TEST_SUITE_P(Signals, JackMidiServerLoss, testing::Values(SIGTERM, SIGKILL));

TEST_F(JackMidi, IdentifiesHardwareByItsAlias) {
    MidiUniqueId id = 0;
    {
        const Receiver hardware("hardware_1", "midi_bridge:UM-ONE MIDI 1");
        const Program program;
        EXPECT_THAT(Program::manager().destinationList(), ElementsAre("UM-ONE MIDI 1"));
        id = Program::manager().destinationIDs().at(0);
    }
    const Receiver first("hardware_1", "midi_bridge:Other MIDI 1");
    const Receiver second("hardware_2", "midi_bridge:UM-ONE MIDI 1");
    const Receiver third("hardware_3", "midi_bridge:UM-ONE MIDI 1");
    const Program program;
    EXPECT_THAT(Program::manager().destinationList(),
                ElementsAre("Other MIDI 1", "UM-ONE MIDI 1", "UM-ONE MIDI 1"));
    const auto ids = Program::manager().destinationIDs();
    EXPECT_EQ(ids.at(1), id);
    EXPECT_NE(ids.at(0), id);
    EXPECT_NE(ids.at(2), id) << "a second one with the same name";
}

TEST_F(JackMidi, ATwinNeverReplacesTheChosenPort) {
    const auto* const alias = "midi_bridge:UM-ONE MIDI 1";
    auto first = std::make_unique<Receiver>("hardware_1", alias);
    Receiver second("hardware_2", alias);
    std::unique_ptr<Receiver> third;
    {
        const Program program;
        ASSERT_EQ(Program::manager().destinationList().size(), 2u);
        Program::manager().connectToDestinationAtIndex(0);
        EXPECT_EQ(first->next(), stopFrame);
        const auto ids = Program::manager().destinationIDs();
        first.reset();
        Program::awaitList({"UM-ONE MIDI 1"});
        EXPECT_EQ(Program::manager().destinationIDs().at(0), ids.at(1));
        Program::manager().sendStopMessage();
        third = std::make_unique<Receiver>("hardware_3", alias);
        Program::awaitList({"UM-ONE MIDI 1", "UM-ONE MIDI 1"});
        Program::manager().sendStopMessage();
    }
    EXPECT_THAT(second.leave(), IsEmpty());
    EXPECT_THAT(third->leave(), IsEmpty());
}

TEST_F(JackMidi, HasNoDestinationsWithoutAServer) {
    server.stop(SIGTERM);
    const Program program;
    EXPECT_THAT(Program::manager().destinationList(), IsEmpty());
    EXPECT_EQ(Program::manager().dest(), 0u);
}

} // namespace
