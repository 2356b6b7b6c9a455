#include "desktop/StayAwake.h"
#include "stripe/StripeRig.h"
#include "support/BusService.h"
#include "support/SessionBus.h"

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

struct Awake : testing::Test, StripeRig {
    Awake() {
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
    StayAwake awake{run, {[this] { return ours; }, [this] { return ours; }}};
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

} // namespace
