#include "app/MainWindowTest.h"
#include "timecode/sync_type.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

using Window = MainWindowTest;

TEST_F(Window, F3AndF4BeginTheTypingOfATime) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F4);
    EXPECT_TRUE(outlet("endTimeButton").hasFocus());
    EXPECT_TRUE(outlet("endTimeButton").isChecked());
    EXPECT_TRUE(controller.stopTimeSet()) << "as by a press on it";
    QTest::keyClick(&window, Qt::Key_F3);
    EXPECT_TRUE(outlet("startTimeButton").hasFocus());
    EXPECT_FALSE(outlet("endTimeButton").isChecked());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3000000"));
    QTest::keyClick(&window, Qt::Key_F3);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(controller.startTime(), 3u << 24) << "F3 again disturbs nothing";
    QTest::keyClick(&window, Qt::Key_F4);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5959"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_F4);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5100000"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(controller.stopTime(), 0x050a0000u) << "typed afresh after a time that was refused";
}

TEST_F(Window, OpensWithTheStartTimeReadyForTyping) {
    EXPECT_EQ(window.focusWidget(), &outlet("startTimeButton"));
}

TEST_F(Window, AClickLeavesTheKeyboardWithTheTimeThatIsTyped) {
    addItems(2);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F3);
    auto& time = outlet("startTimeButton");
    QTest::keyClicks(&time, QStringLiteral("1200"));
    table.selectRow(0);
    const auto click = [&](const char* name) {
        QTest::mouseClick(&outlet(name), Qt::LeftButton);
        EXPECT_EQ(QApplication::focusWidget(), &time) << name;
    };
    for (const auto* name : {"stopTimeCheck", "batchCheck", "DTL", "batchSelected"})
        click(name);
    QTest::keyClicks(&time, QStringLiteral("0000\r"));
    EXPECT_EQ(controller.startTime(), 12u << 24);
    for (const auto* name : {"25 fps", "playButton", "stopButton", "removeFromBatchButton"})
        click(name);
}

/// The controls that the key reaches in turn, from the start until the focus is back there.
QStringList tabStops(QWidget& start, Qt::Key key) {
    start.setFocus();
    QStringList names;
    do {
        names += QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), key);
    } while (QApplication::focusWidget() != &start && names.size() < 40);
    return names;
}

TEST_F(Window, TabFollowsTheEyeAndReachesWhatIsOn) {
    addItems(2);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    outlet("stopTimeCheck").click();
    table.selectRow(0);
    const auto expectStops = [&](const char* rate, const char* type, const char* mode) {
        QStringList stops{u"startTimeButton"_s,  u"stopTimeCheck"_s,     u"endTimeButton"_s,
                          u"addToBatchButton"_s, QLatin1String(rate),    QLatin1String(type),
                          u"batchCheck"_s,       QLatin1String(mode),    u"removeFromBatchButton"_s,
                          u"batchTable"_s,       u"destinationButton"_s, u"stopButton"_s};
        auto& start = outlet("startTimeButton");
        EXPECT_EQ(tabStops(start, Qt::Key_Tab), stops);
        std::reverse(stops.begin() + 1, stops.end());
        EXPECT_EQ(tabStops(start, Qt::Key_Backtab), stops);
    };
    expectStops("30 fps", "MTC", "batchAll");
    QTest::mouseClick(&outlet("25 fps"), Qt::LeftButton);
    controller.handleSyncTypeMenuItems(sync::dtl);
    QTest::mouseClick(&outlet("batchSelected"), Qt::LeftButton);
    expectStops("25 fps", "DTL", "batchSelected");

    outlet("25 fps").setFocus();
    controller.handleFrameRateMenuItems(rate::fps24);
    expectStops("24 fps", "DTL", "batchSelected");
}

TEST_F(Window, ArrowKeysLookThroughTheTransportAndPressNothing) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    outlet("stopButton").setFocus();
    for (const auto* name : {"playButton", "pauseButton", "pauseButton"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        EXPECT_EQ(QApplication::focusWidget(), &outlet(name));
    }
    EXPECT_EQ(controller.transportState(), transport::stopped);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &outlet("startTimeButton"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), &outlet("stopButton")) << "the one that is on";
}

} // namespace
