#include "desktop/ApplicationService.h"
#include "desktop/hand_over.h"
#include "support/SessionBus.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <chrono>
#include <future>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

constexpr int patience = 10'000; // ms

struct HandOver : testing::Test {
    HandOver() { service.takeName(); }

    /// Hands over from another thread while this one serves the bus.
    bool handedOver(const QString& file) {
        auto answer = std::async(std::launch::async, [&] {
            return handOver(bus.connection(u"second"_s), file,
                            {{u"activation-token"_s, u"leave"_s}}, patience);
        });
        while (answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return answer.get();
    }

    const SessionBus bus;
    ApplicationService service{bus.connection(u"running"_s)};
    QSignalSpy activated{&service, &ApplicationService::activated};
    QSignalSpy fileOpened{&service, &ApplicationService::fileOpened};
};

TEST_F(HandOver, OpensTheFile) {
    EXPECT_TRUE(handedOver(u"/tmp/Ω #1 100%.vexaB"_s));
    ASSERT_EQ(fileOpened.size(), 1);
    EXPECT_EQ(fileOpened[0], QVariantList{u"/tmp/Ω #1 100%.vexaB"_s});
    ASSERT_EQ(activated.size(), 1);
    EXPECT_EQ(activated[0][0], QByteArray("leave"));
}

TEST_F(HandOver, ActivatesWithoutAFile) {
    EXPECT_TRUE(handedOver({}));
    EXPECT_EQ(fileOpened.size(), 0);
    EXPECT_EQ(activated.size(), 1);
}

TEST_F(HandOver, FailsWhereNobodyAnswers) {
    // This program, which should answer, is blocked in the call.
    EXPECT_FALSE(handOver(bus.connection(u"third"_s), u"/a"_s, {}, 50));
}

TEST(StartupTokens, ComeFromTheEnvironment) {
    EXPECT_TRUE(startupTokens().isEmpty());
    qputenv("XDG_ACTIVATION_TOKEN", "leave");
    qputenv("DESKTOP_STARTUP_ID", "studio_TIME42");
    EXPECT_EQ(startupTokens(), (QVariantMap{{u"activation-token"_s, u"leave"_s},
                                            {u"desktop-startup-id"_s, u"studio_TIME42"_s}}));
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
}

} // namespace
