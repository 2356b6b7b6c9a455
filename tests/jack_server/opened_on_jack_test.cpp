#include "jack_server/opened_on_jack.h"
#include "midi/FakeJackServer.h"

#include <gtest/gtest.h>

#include <memory>

using namespace vexa;
using namespace vexa::test;

namespace {

struct OpenedOnJack : testing::Test {
    /// Whether a client opens. Its making fails that many times.
    bool opens(int failures = 0) {
        return openedOnJack("Client", [&](jack_client_t*) {
                   return failures-- > 0 ? nullptr : std::make_unique<int>();
               }) != nullptr;
    }

    FakeJackServer server;
};

TEST_F(OpenedOnJack, OpensAtTheFirstAttempt) {
    EXPECT_TRUE(opens());
    EXPECT_EQ(server.attempts(), 1);
}

TEST_F(OpenedOnJack, TriesAgainWhenABusyServerRefusesTheClient) {
    server.refuseClients(2);
    EXPECT_TRUE(opens());
    EXPECT_EQ(server.attempts(), 3);
}

TEST_F(OpenedOnJack, TriesAgainWhenABusyServerRefusesWhatTheClientAsksFor) {
    EXPECT_TRUE(opens(2));
    EXPECT_EQ(server.attempts(), 3);
}

TEST_F(OpenedOnJack, GivesUpAfterThreeAttempts) {
    server.refuseClients(3);
    EXPECT_FALSE(opens());
    EXPECT_EQ(server.attempts(), 3);
}

TEST_F(OpenedOnJack, DoesNotTryAgainWithoutAServer) {
    server.end();
    EXPECT_FALSE(opens());
    EXPECT_EQ(server.attempts(), 1);
}

} // namespace
