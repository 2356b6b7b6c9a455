#include "controls/TimecodeButtonTest.h"

#include <QApplication>
#include <QFocusEvent>
#include <QTest>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

using TimecodeButton = TimecodeButtonTest;

TEST_F(TimecodeButton, ShowsItsTimeInGrayAndEntriesInGreen) {
    EXPECT_EQ(title(), "01:00:00:00");
    EXPECT_EQ(entry(), "01:00:00:00");
    EXPECT_EQ(button.normalColor(), QColor::fromRgbF(0.541F, 0.541F, 0.541F));
    EXPECT_EQ(button.hiliteColor(), QColor::fromRgbF(0.192F, 0.875F, 0.102F));
    EXPECT_EQ(button.state(), 0);
}

TEST_F(TimecodeButton, PacksAndUnpacksItsFields) {
    button.setBcdValue(0x17030405);
    EXPECT_EQ(button.hours(), 23u);
    EXPECT_EQ(button.minutes(), 3u);
    EXPECT_EQ(button.seconds(), 4u);
    EXPECT_EQ(button.frames(), 5u);
    EXPECT_EQ(button.bcdValue(), 0x17030405u);
    EXPECT_EQ(title(), "23:03:04:05");
}

TEST_F(TimecodeButton, SwitchingOffCommitsOnce) {
    button.setState(1);
    type("3000000");
    button.setState(0);
    EXPECT_EQ(committed(), tc("03:00:00:00"));
    EXPECT_EQ(title(), "03:00:00:00");
}

TEST_F(TimecodeButton, DisabledItOnlyTakesTheState) {
    button.setEnabled(false);
    button.setState(1);
    EXPECT_EQ(button.state(), 1);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_5, Qt::NoModifier, QStringLiteral("5"));
    QApplication::sendEvent(&button, &key);
    EXPECT_EQ(entry(), "01:00:00:00");
    button.setState(0);
    EXPECT_EQ(button.state(), 0);
    EXPECT_FALSE(rig.controller.undoManager().canUndo());
}

TEST_F(TimecodeButton, TabIsConsumedInEntryAndMovesOnAtRest) {
    QWidget window;
    button.setParent(&window);
    QPushButton next(&window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    button.setFocus();
    button.setState(1);
    QTest::keyClick(&button, Qt::Key_Tab);
    EXPECT_EQ(button.state(), 0);
    EXPECT_EQ(QApplication::focusWidget(), &button);
    QTest::keyClick(&button, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &next);
    button.setParent(nullptr);
}

TEST_F(TimecodeButton, AClickBeginsAnEntryAndAnotherCommitsIt) {
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.state(), 1);
    type("5000000");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.state(), 0);
    EXPECT_EQ(committed(), tc("05:00:00:00"));
}

TEST_F(TimecodeButton, ADoubleClickAndADragLeaveItAtRest) {
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    EXPECT_EQ(committed(), tc("01:00:00:00"));
    button.setState(0);
    QTest::mousePress(&button, Qt::LeftButton, {}, button.rect().center());
    QTest::mouseMove(&button, QPoint(-50, -50));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(-50, -50));
    EXPECT_EQ(button.state(), 0);
}

TEST_F(TimecodeButton, GettingTheFocusStartsTheEntryAnew) {
    button.setState(1);
    type("12");
    QFocusEvent popupClosed(QEvent::FocusIn, Qt::PopupFocusReason);
    QApplication::sendEvent(&button, &popupClosed);
    type("3");
    EXPECT_EQ(entry(), "00:00:01:23");
    QFocusEvent clicked(QEvent::FocusIn, Qt::MouseFocusReason);
    QApplication::sendEvent(&button, &clicked);
    type("4");
    EXPECT_EQ(entry(), "00:00:00:04");
}

TEST_F(TimecodeButton, ShowsWhatReturnTakesWhenItGetsTheFocus) {
    button.setState(1);
    type("12");
    QFocusEvent clicked(QEvent::FocusIn, Qt::MouseFocusReason);
    QApplication::sendEvent(&button, &clicked);
    EXPECT_EQ(entry(), "01:00:00:00");
    button.handleKey(QStringLiteral("\r"));
    EXPECT_EQ(committed(), tc("01:00:00:00"));
}

TEST_F(TimecodeButton, ARateChangeBringsTheTimeIntoLine) {
    rig.controller.setFrameRate(rate::fps30);
    button.setBcdValue(tc("00:00:10:29"));
    rig.controller.setFrameRate(rate::fps24);
    EXPECT_EQ(title(), "00:00:11:05");
    EXPECT_EQ(committed(), tc("01:00:00:00"));
}

TEST_F(TimecodeButton, TellsAssistiveTechnologyWhatItShows) {
    button.setAccessibleName(QStringLiteral("Start time"));
    EXPECT_EQ(button.accessibleDescription(), QStringLiteral("01:00:00:00"));
    button.setState(1);
    type("7");
    EXPECT_EQ(button.accessibleDescription(), QStringLiteral("00:00:00:07"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Start time"));
}

TEST_F(TimecodeButton, TheOtherDisplaysPressCommitsThisOne) {
    VexaTimecodeButton stop;
    stop.setTag(time_tag::stop);
    stop.awakeFromNib();
    Outlets outlets = rig.ui.outlets(rig.alerts);
    outlets.startTimeButton = &button;
    outlets.endTimeButton = &stop;
    Vexa_RemoteAppDelegate own(outlets, rig.runLoop);
    button.disconnect();
    for (auto* display : {&button, &stop})
        QObject::connect(display, &VexaTimecodeButton::timeChanged, &own,
                         &Vexa_RemoteAppDelegate::timeChanged);
    own.applicationDidFinishLaunching();

    button.setState(1);
    type("6000000");
    stop.setState(1);
    own.handleStopTimeButton();
    EXPECT_EQ(own.startTime(), tc("06:00:00:00"));
    EXPECT_EQ(button.state(), 0);
    EXPECT_TRUE(own.stopTimeSet());

    for (const char digit : std::string("7000000"))
        stop.handleKey(QString(QLatin1Char(digit)));
    own.handleStartTimeButton();
    EXPECT_EQ(own.stopTime(), tc("07:00:00:00"));
    EXPECT_EQ(stop.state(), 0);
}

} // namespace
