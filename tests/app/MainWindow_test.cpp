#include "app/BigClock.h"
#include "app/MainWindowTest.h"
#include "controls/ClockDisplay.h"
#include "controls/KelGrayTextMatrix.h"
#include "defaults/user_defaults.h"
#include "timecode/sync_type.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

using Window = MainWindowTest;

TEST_F(Window, HasARadioCellForEachRateAndSyncType) {
    for (const auto& rate : frameRates) {
        const auto& cell = outlet(std::string(rate.name).c_str());
        EXPECT_EQ(cell.accessibleName(), cell.text());
        EXPECT_EQ(outlet<KelGrayTextMatrix>("frameRateMatrix").cellWithTag(rate.code), &cell);
    }
    for (std::uint64_t code = 0; code < sync::count; ++code)
        EXPECT_EQ(
            outlet<KelGrayTextMatrix>("syncTypeMatrix").cellWithTag(code)->text().toStdString(),
            syncTypeName(code));
}

TEST_F(Window, HasButtonsWhoseGrayCaptionsReadAlsoWhenPressed) {
    outlet("stopTimeCheck").click();
    for (const bool down : {false, true}) {
        auto& add = outlet("addToBatchButton");
        add.setDown(down);
        const auto image = add.grab().toImage();
        const QColor ground = image.pixelColor(5, image.height() / 2);
        EXPECT_EQ(ground, QColor(Qt::white)) << "at 4.67:1, and 4.5:1 on nothing below 98.3 %";
        add.setDown(false);
    }
}

TEST_F(Window, SaysHowLongTheStripeLasts) {
    const auto& lasts = outlet<QLabel>("lastsLabel");
    EXPECT_EQ(lasts.text(), QString());
    outlet("stopTimeCheck").click();
    QCoreApplication::processEvents();
    EXPECT_EQ(lasts.text(), u"lasts 0:05"_s);
}

TEST_F(Window, TellsOfATimeThatIsTypedButNotTaken) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto& status = outlet<QLabel>("statusLabel");
    const auto said = [&] {
        QCoreApplication::processEvents();
        return status.accessibleDescription();
    };
    EXPECT_EQ(said(), u"no items"_s);
    QTest::keyClick(&window, Qt::Key_F4);
    EXPECT_EQ(said(), u"no items"_s) << "nothing is typed yet";
    QTest::keyClicks(QApplication::focusWidget(), u"1000059"_s);
    EXPECT_EQ(said(), u"Stop time not taken: press Return"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(said(), u"no frame 59 at 30 fps"_s);
    QTest::keyClick(&window, Qt::Key_F4);
    QTest::keyClicks(QApplication::focusWidget(), u"1100000\r"_s);
    EXPECT_EQ(said(), u"no items"_s);
}

/// The menu item with this title.
QAction* item(const MainWindow& window, const QString& menu, const QString& title) {
    for (const auto* top : window.menuBar()->actions())
        if (top->text() == menu)
            for (auto* action : top->menu()->actions())
                if (action->text() == title)
                    return action;
    return nullptr;
}

TEST_F(Window, TheStatusLineComesAndGoesAndIsRemembered) {
    auto& status = outlet<QWidget>("statusLine");
    auto* const show = item(window, u"&View"_s, u"&Status Line"_s);
    ASSERT_TRUE(status.isVisible() && show->isChecked());
    show->trigger();
    EXPECT_FALSE(status.isVisible());
    EXPECT_EQ(defaults::read().showsStatusLine, false);
    const MainWindow next;
    EXPECT_TRUE(next.findChild<QWidget*>(u"statusLine"_s)->isHidden());
    show->trigger();
    EXPECT_TRUE(status.isVisible());
}

TEST_F(Window, TheBigClockFillsTheScreenAndFollowsTheClock) {
    auto* const show = item(window, u"&View"_s, u"&Big Clock"_s);
    show->trigger();
    auto* const bigClock = window.findChild<BigClock*>();
    ASSERT_NE(bigClock, nullptr);
    EXPECT_TRUE(bigClock->isVisible() && bigClock->isWindow() && bigClock->isFullScreen());
    EXPECT_TRUE(show->isChecked());
    EXPECT_EQ(bigClock->size(), window.screen()->size());
    auto& clock = bigClock->display().clock();
    EXPECT_GT(clock.height(), bigClock->height() / 2);
    controller.handleStripeMenuItems(transport::playing);
    runLoop.fireTimerOf(RunLoop::Seconds(controller.frameInterval()));
    EXPECT_EQ(clock.reading(), u"01:00:00:01"_s);
    for (const auto key : {Qt::Key_Escape, Qt::Key_F11}) {
        QTest::keyClick(bigClock, key);
        EXPECT_FALSE(bigClock->isVisible());
        EXPECT_FALSE(show->isChecked());
        show->trigger();
        EXPECT_TRUE(bigClock->isVisible());
    }
    bigClock->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(bigClock));
    QTest::keyClick(bigClock, Qt::Key_F5);
    EXPECT_EQ(controller.transportState(), transport::stopped);
}

} // namespace
