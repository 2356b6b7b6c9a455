#include "desktop/StayAwake.h"
#include "stripe/StripeRig.h"
#include "support/SessionBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using From = StripeRun::From;

namespace {

/// The screen saver's service, as a program on the bus; it can be kept from answering.
class ScreenSaver final : public QDBusVirtualObject {
public:
    explicit ScreenSaver(QDBusConnection bus) : m_bus(std::move(bus)) {
        EXPECT_TRUE(
            m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/ScreenSaver"), this));
        EXPECT_TRUE(m_bus.registerService(QStringLiteral("org.freedesktop.ScreenSaver")));
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        if (message.member() == QLatin1String("Inhibit")) {
            m_asked.emplace_back("inhibit");
            m_request = message;
            if (!m_isHeld)
                answer(7U);
        } else {
            m_asked.push_back("release " + std::to_string(message.arguments().at(0).toUInt()));
        }
        return true;
    }

    /// The requests so far, once there are that many.
    const std::vector<std::string>& asked(std::size_t count) {
        while (m_asked.size() < count)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return m_asked;
    }
    void hold() { m_isHeld = true; }
    void answer(const QVariant& answer) {
        m_bus.send(m_request.createReply(answer));
        m_isHeld = false;
    }

private:
    QDBusConnection m_bus;
    std::vector<std::string> m_asked;
    QDBusMessage m_request;
    bool m_isHeld = false;
};

struct Awake : testing::Test, StripeRig {
    Awake() {
        plan.settings = {packed("01:00:00:00"), packed("01:00:00:03"), rate::fps25, sync::mtc};
    }

    SessionBus bus;
    ScreenSaver screenSaver{bus.connection(QStringLiteral("screen saver"))};
    const QDBusConnection ours = bus.connection(QStringLiteral("ours"));
    StayAwake awake{run, {[this] { return ours; }, [this] { return ours; }}};
};

TEST_F(Awake, IsAskedForByPlayAndGivenBackAtThePauseAndTheEnd) {
    plan.stopTimeSet = true;
    run.play(From::startTime);
    EXPECT_THAT(screenSaver.asked(1), ElementsAre("inhibit"));
    run.pause();
    EXPECT_THAT(screenSaver.asked(2), ElementsAre("inhibit", "release 7"));
    run.play(From::clock);
    EXPECT_EQ(screenSaver.asked(3).back(), "inhibit");
    tick(3);
    EXPECT_EQ(screenSaver.asked(4).back(), "release 7");
    run.play(From::startTime);
    EXPECT_EQ(screenSaver.asked(5).back(), "inhibit");
    run.stop();
    EXPECT_EQ(screenSaver.asked(6).back(), "release 7");
}

TEST_F(Awake, LastsBetweenItemsAndWhileAReelIsAwaited) {
    addItem(1, "one", 1);
    addItem(2, "two", 2);
    plan.useBatch = true;
    run.play(From::startTime);
    screenSaver.asked(1);
    tick(3);
    endPause();
    ASSERT_EQ(run.progress().phase, Phase::awaitingReel);
    run.reelLoaded();
    tick(3);
    EXPECT_THAT(screenSaver.asked(2), ElementsAre("inhibit", "release 7"));
}

TEST_F(Awake, APromiseThatComesTooLateIsGivenBack) {
    screenSaver.hold();
    run.play(From::startTime);
    screenSaver.asked(1);
    run.stop();
    screenSaver.answer(9U);
    EXPECT_THAT(screenSaver.asked(2), ElementsAre("inhibit", "release 9"));
}

TEST_F(Awake, AnAnswerThatIsNoneIsNotGivenBack) {
    screenSaver.hold();
    run.play(From::startTime);
    screenSaver.asked(1);
    screenSaver.answer(QStringLiteral("yes"));
    while (screenSaver.asked(1).size() == 1) { // asks again once the others have refused
        run.stop();
        run.play(From::startTime);
        QCoreApplication::processEvents();
    }
    EXPECT_THAT(screenSaver.asked(2), ElementsAre("inhibit", "inhibit"));
}

} // namespace
