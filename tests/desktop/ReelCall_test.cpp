#include "desktop/ReelCall.h"
#include "stripe/StripeRig.h"
#include "support/BusService.h"
#include "support/SessionBus.h"

#include <QDBusArgument>
#include <QWidget>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;
using From = StripeRun::From;

namespace {

/// What a notification says and how, or which one is closed.
std::string whatMatters(const QDBusMessage& call) {
    const auto arguments = call.arguments();
    if (arguments.size() == 1)
        return ' ' + std::to_string(arguments[0].toUInt());
    const auto hints = qdbus_cast<QVariantMap>(arguments.at(6));
    return ": " +
           (arguments[3].toString() + QStringLiteral(". ") + arguments[4].toString())
               .toStdString() +
           ", urgency " + std::to_string(hints[QStringLiteral("urgency")].toUInt()) + ", " +
           hints[QStringLiteral("sound-name")].toString().toStdString();
}

const std::string call =
    "Notify: Time to change reels. Please load reel 2, urgency 2, message-attention";

/// A run that awaits the second reel; no window of ours is active.
struct Call : testing::Test, StripeRig {
    void awaitReel() {
        list.clearBatchList();
        addItem(1, "one", 1);
        addItem(2, "two", 2);
        plan.useBatch = true;
        run.play(From::startTime);
        tick(3);
        endPause();
        ASSERT_EQ(run.progress().phase, Phase::awaitingReel);
    }

    SessionBus bus;
    BusService notifications{bus.connection(QStringLiteral("notifications")),
                             QStringLiteral("org.freedesktop.Notifications"),
                             QStringLiteral("/org/freedesktop/Notifications"),
                             QStringLiteral("Notify"),
                             5U,
                             whatMatters};
    QWidget window;
    ReelCall reelCall{window, run, bus.connection(QStringLiteral("ours"))};
};

TEST_F(Call, IsACriticalNotificationThatIsWithdrawnWhenTheRunGoesOn) {
    awaitReel();
    EXPECT_THAT(notifications.calls(1), ElementsAre(call));
    run.reelLoaded();
    EXPECT_THAT(notifications.calls(2), ElementsAre(call, "CloseNotification 5"));
}

TEST_F(Call, IsWithdrawnAtAStop) {
    awaitReel();
    notifications.calls(1);
    run.stop();
    EXPECT_EQ(notifications.calls(2).back(), "CloseNotification 5");
}

TEST_F(Call, ThatIsShownLateIsWithdrawnAtOnce) {
    notifications.hold();
    awaitReel();
    notifications.calls(1);
    run.reelLoaded();
    notifications.answer(8U);
    EXPECT_EQ(notifications.calls(2).back(), "CloseNotification 8");
}

TEST_F(Call, ThatIsAnsweredWithNonsenseIsNotWithdrawn) {
    notifications.hold();
    awaitReel();
    notifications.calls(1);
    notifications.answer(QStringLiteral("yes"));
    run.reelLoaded();
    run.stop();
    awaitReel();
    EXPECT_THAT(notifications.calls(2), ElementsAre(call, call));
}

} // namespace
