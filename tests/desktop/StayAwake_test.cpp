#include "desktop/StayAwake.h"
#include "stripe/StripeRig.h"
#include "support/BusService.h"
#include "support/SessionBus.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using From = StripeRun::From;

namespace {

std::string cookieOf(const QDBusMessage& call) {
    const auto cookie = call.arguments().at(0);
    return cookie.typeId() == QMetaType::UInt ? ' ' + std::to_string(cookie.toUInt()) : "";
}

const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

std::string nothing(const QDBusMessage&) { return {}; }

struct Awake : testing::Test, StripeRig {
    explicit Awake(std::chrono::milliseconds patience = std::chrono::seconds(5))
        : awake(run, {[this] { return ours; }, [this] { return ours; }}, patience) {
        plan.settings = {packed("01:00:00:00"), packed("01:00:00:03"), rate::fps25, sync::mtc};
    }

    SessionBus bus;
    BusService screenSaver{bus.connection(QStringLiteral("screen saver")),
                           QStringLiteral("org.freedesktop.ScreenSaver"),
                           QStringLiteral("/org/freedesktop/ScreenSaver"),
                           QStringLiteral("Inhibit"),
                           7U,
                           cookieOf};
    const QDBusConnection ours = bus.connection(QStringLiteral("ours"));
    StayAwake awake;
};

/// The first service to be asked. Its promise is an object at its own path.
BusService portalOn(const SessionBus& bus, const QVariant& answer) {
    return BusService(bus.connection(QStringLiteral("portal")),
                      QStringLiteral("org.freedesktop.portal.Desktop"), portalPath,
                      QStringLiteral("Inhibit"), answer, nothing);
}

/// The last service to be asked. It answers nonsense.
BusService logindOn(const SessionBus& bus) {
    return BusService(bus.connection(QStringLiteral("logind")),
                      QStringLiteral("org.freedesktop.login1"),
                      QStringLiteral("/org/freedesktop/login1"), QStringLiteral("Inhibit"),
                      QStringLiteral("yes"), nothing);
}

/// Asks the next service at once.
struct ImpatientlyAwake : Awake {
    ImpatientlyAwake() : Awake(std::chrono::milliseconds(0)) {}
};

TEST_F(Awake, IsAskedForByPlayAndGivenBackAtThePauseAndTheEnd) {
    plan.stopTimeSet = true;
    run.play(From::startTime);
    EXPECT_THAT(screenSaver.calls(1), ElementsAre("Inhibit"));
    run.pause();
    EXPECT_THAT(screenSaver.calls(2), ElementsAre("Inhibit", "UnInhibit 7"));
    run.play(From::clock);
    EXPECT_EQ(screenSaver.calls(3).back(), "Inhibit");
    tick(3);
    EXPECT_EQ(screenSaver.calls(4).back(), "UnInhibit 7");
    run.play(From::startTime);
    EXPECT_EQ(screenSaver.calls(5).back(), "Inhibit");
    run.stop();
    EXPECT_EQ(screenSaver.calls(6).back(), "UnInhibit 7");
}

TEST_F(Awake, LastsBetweenItemsAndWhileAReelIsAwaited) {
    addItem(1, "one", 1);
    addItem(2, "two", 2);
    plan.useBatch = true;
    run.play(From::startTime);
    screenSaver.calls(1);
    tick(3);
    endPause();
    ASSERT_EQ(run.progress().phase, Phase::awaitingReel);
    run.reelLoaded();
    tick(3);
    EXPECT_THAT(screenSaver.calls(2), ElementsAre("Inhibit", "UnInhibit 7"));
}

TEST_F(Awake, APromiseThatComesTooLateIsGivenBack) {
    screenSaver.hold();
    run.play(From::startTime);
    screenSaver.calls(1);
    run.stop();
    screenSaver.answer(9U);
    EXPECT_THAT(screenSaver.calls(2), ElementsAre("Inhibit", "UnInhibit 9"));
}

TEST_F(Awake, AnAnswerThatIsNoneIsNotGivenBack) {
    screenSaver.hold();
    run.play(From::startTime);
    screenSaver.calls(1);
    screenSaver.answer(QStringLiteral("yes"));
    while (screenSaver.calls(1).size() == 1) { // it asks anew once the others have refused
        run.stop();
        run.play(From::startTime);
        QCoreApplication::processEvents();
    }
    EXPECT_THAT(screenSaver.calls(2), ElementsAre("Inhibit", "Inhibit"));
}

TEST_F(Awake, APortalThatAnswersNonsenseIsPassedOver) {
    auto portal = portalOn(bus, QStringLiteral("yes"));
    run.play(From::startTime);
    screenSaver.calls(1);
    run.stop();
    EXPECT_EQ(screenSaver.calls(2).back(), "UnInhibit 7");
    EXPECT_THAT(portal.calls(1), ElementsAre("Inhibit"));
}

TEST_F(Awake, APromiseOfThePortalThatTheDesktopRefusesIsAskedOfTheNext) {
    auto portal = portalOn(bus, QVariant::fromValue(QDBusObjectPath(portalPath)));
    const auto respond = [&](uint response) {
        auto signal =
            QDBusMessage::createSignal(portalPath, QStringLiteral("org.freedesktop.portal.Request"),
                                       QStringLiteral("Response"));
        bus.connection(QStringLiteral("portal")).send(signal << response << QVariantMap());
    };
    run.play(From::startTime);
    portal.calls(1);
    respond(0);
    run.stop();
    EXPECT_THAT(portal.calls(2), ElementsAre("Inhibit", "Close"));
    run.play(From::startTime);
    portal.calls(3);
    respond(2);
    EXPECT_THAT(screenSaver.calls(1), ElementsAre("Inhibit"));
    EXPECT_THAT(portal.calls(4), ElementsAre("Inhibit", "Close", "Inhibit", "Close"));
    run.stop();
    EXPECT_THAT(screenSaver.calls(2), ElementsAre("Inhibit", "UnInhibit 7"));
}

TEST_F(Awake, ServicesOfABusThatIsNotThereAreNotWaitedFor) {
    auto logind = logindOn(bus);
    const QDBusConnection none(QStringLiteral("none"));
    const StayAwake withoutSession(run, {[none] { return none; }, [this] { return ours; }},
                                   std::chrono::hours(1));
    run.play(From::startTime);
    EXPECT_THAT(logind.calls(1), ElementsAre("Inhibit"));
}

TEST_F(ImpatientlyAwake, APromiseThatComesAfterTheOthersRefusedIsKept) {
    auto logind = logindOn(bus);
    screenSaver.hold();
    run.play(From::startTime);
    screenSaver.calls(1);
    logind.calls(1);
    screenSaver.answer(9U);
    run.stop();
    EXPECT_THAT(screenSaver.calls(2), ElementsAre("Inhibit", "UnInhibit 9"));
}

TEST_F(ImpatientlyAwake, APromiseThatComesAfterAnotherIsGivenBack) {
    const auto promise = QVariant::fromValue(QDBusObjectPath(portalPath));
    auto portal = portalOn(bus, promise);
    portal.hold();
    run.play(From::startTime);
    portal.calls(1);
    screenSaver.calls(1);
    // The bus has taken the screen saver's promise once it answers the screen saver.
    bus.connection(QStringLiteral("screen saver")).interface()->serviceOwner(QStringLiteral("x"));
    portal.answer(promise);
    EXPECT_THAT(portal.calls(2), ElementsAre("Inhibit", "Close"));
    EXPECT_THAT(screenSaver.calls(1), ElementsAre("Inhibit"));
}

} // namespace
