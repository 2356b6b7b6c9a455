#include "midi/FakeJackServer.h"
#include "midi/jack/JackSession.h"

#include <gmock/gmock.h>

#include <map>
#include <memory>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct JackSessionTest : testing::Test {
    JackSessionTest() {
        server.add("A");
        server.add("B");
        session = JackSession::open();
    }
    ~JackSessionTest() override {
        server.running([this] {
            session.reset();
            return true;
        });
    }

    /// While periods run.
    bool connectTo(const std::string& port) {
        return server.running([&] { return session->connectTo(port); });
    }

    bool write(const std::string& text) {
        return session->write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }

    FakeJackServer server;
    std::unique_ptr<JackSession> session;
};

TEST_F(JackSessionTest, EveryMessageOfManySwitchesReachesItsOwnPort) {
    std::map<std::string, std::vector<std::string>> expected;
    for (int visit = 0; visit < 250; ++visit) {
        const std::string port = visit % 2 ? "A" : "B";
        server.delayChanges(visit % 7);
        ASSERT_TRUE(connectTo(port));
        for (int message = 0; message < 4; ++message) {
            const auto text = std::to_string(visit) + '.' + std::to_string(message);
            ASSERT_TRUE(write(text));
            expected[port].push_back(text);
        }
    }
    server.runPeriod();
    EXPECT_EQ(server.arrived("A"), expected["A"]);
    EXPECT_EQ(server.arrived("B"), expected["B"]);
}

TEST_F(JackSessionTest, WaitsForAServerThatIsSlowToConnect) {
    server.delayChanges(50);
    ASSERT_TRUE(connectTo("A"));
    ASSERT_TRUE(write("1"));
    server.runPeriod();
    EXPECT_THAT(server.arrived("A"), ElementsAre("1"));
}

TEST_F(JackSessionTest, WaitsForAConnectionThatWasAlreadyRequested) {
    server.delayChanges(50);
    server.connect("A");
    ASSERT_TRUE(connectTo("A"));
    ASSERT_TRUE(write("1"));
    server.runPeriod();
    EXPECT_THAT(server.arrived("A"), ElementsAre("1"));
}

TEST_F(JackSessionTest, KeepsThePortWhoseMessagesWaitForAServerThatHangs) {
    ASSERT_TRUE(connectTo("A"));
    ASSERT_TRUE(write("1"));
    EXPECT_FALSE(session->connectTo("B")) << "without a period";
    server.runPeriod();
    server.runPeriod();
    EXPECT_THAT(server.arrived("A"), ElementsAre("1"));
    ASSERT_TRUE(connectTo("B"));
    ASSERT_TRUE(write("2"));
    server.runPeriod();
    EXPECT_THAT(server.arrived("A"), ElementsAre("1"));
    EXPECT_THAT(server.arrived("B"), ElementsAre("2"));
}

TEST_F(JackSessionTest, DropsTheMessagesOfAPortThatWasUnplugged) {
    ASSERT_TRUE(connectTo("A"));
    ASSERT_TRUE(write("1"));
    server.remove("A");
    EXPECT_FALSE(session->isConnected());
    server.add("A");
    ASSERT_TRUE(connectTo("A"));
    ASSERT_TRUE(write("2"));
    server.runPeriod();
    EXPECT_THAT(server.arrived("A"), ElementsAre("2"));
}

TEST_F(JackSessionTest, DoesNotWaitForAPortThatIsGone) {
    EXPECT_FALSE(connectTo("C"));
    ASSERT_TRUE(connectTo("A"));
    EXPECT_TRUE(session->isConnected());
}

TEST_F(JackSessionTest, DoesNotWaitForAServerThatHasEnded) {
    ASSERT_TRUE(connectTo("A"));
    server.end();
    EXPECT_FALSE(session->isAlive());
    EXPECT_FALSE(session->connectTo("B"));
}

TEST_F(JackSessionTest, SendsTheLastMessageBeforeItCloses) {
    ASSERT_TRUE(connectTo("A"));
    ASSERT_TRUE(write("1"));
    server.running([this] {
        session.reset();
        return true;
    });
    EXPECT_THAT(server.arrived("A"), ElementsAre("1"));
    EXPECT_THAT(server.arrived("B"), IsEmpty());
}

} // namespace
