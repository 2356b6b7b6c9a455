#include "controls/VexaTimecodeButton.h"
#include "support/ControllerRig.h"

#include <QApplication>
#include <QClipboard>
#include <QFocusEvent>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

/// The start time display of a controller, showing 01:00:00:00 outside an entry, in its own window.
struct TimecodeButton : testing::Test {
    TimecodeButton() {
        button.setTag(time_tag::start);
        button.awakeFromNib();
        QObject::connect(&button, &VexaTimecodeButton::timeChanged, &rig.controller,
                         &Vexa_RemoteAppDelegate::timeChanged);
        button.setBcdValue(tc("01:00:00:00"));
        button.show();
    }

    void type(const char* characters) {
        for (const char* c = characters; *c; ++c)
            button.handleKey(QString(QLatin1Char(*c)));
    }
    std::string title() const { return button.title().toStdString(); }
    std::string entry() const { return button.alternateTitle().toStdString(); }
    std::uint64_t committed() const { return rig.controller.startTime(); }

    VexaTimecodeButton button;
    ControllerRig rig{&button};
};

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

TEST_F(TimecodeButton, TheFirstDigitClearsAndDigitsComeInFromTheRight) {
    button.setState(1);
    EXPECT_EQ(entry(), "01:00:00:00");
    type("5");
    EXPECT_EQ(entry(), "00:00:00:05");
    type("123");
    EXPECT_EQ(entry(), "00:00:51:23");
    EXPECT_EQ(title(), "01:00:00:00");
}

TEST_F(TimecodeButton, MoreThanEightDigitsFallOffTheLeft) {
    button.setState(1);
    type("1234567890");
    EXPECT_EQ(entry(), "34:56:78:90");
}

TEST_F(TimecodeButton, DeletingShiftsRight) {
    for (const char* key : {"\x08", "\x7f"}) {
        button.setState(0);
        button.setState(1);
        type(key);
        EXPECT_EQ(entry(), "00:00:00:00");
        type("1234");
        type(key);
        EXPECT_EQ(entry(), "00:00:01:23");
    }
    type("12345678\x08");
    EXPECT_EQ(entry(), "01:23:45:67");
}

struct Key {
    const char16_t* characters;
    bool handled;
    int stateAfter; ///< of a button in an empty entry
};

class KeyTable : public TimecodeButton, public testing::WithParamInterface<Key> {};

TEST_P(KeyTable, HandlesTheKeysOfAnEntryOnly) {
    button.setState(1);
    EXPECT_EQ(button.handleKey(QString::fromUtf16(GetParam().characters)), GetParam().handled);
    EXPECT_EQ(button.state(), GetParam().stateAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyTable,
    testing::Values(Key{u"0", true, 1}, Key{u"9", true, 1}, Key{u"\x08", true, 1},
                    Key{u"\x7f", true, 1}, Key{u"\x03", true, 0}, Key{u"\t", true, 0},
                    Key{u"\r", true, 0}, Key{u"\x1b", false, 1}, Key{u"\n", false, 1},
                    Key{u"a", false, 1}, Key{u":", false, 1}, Key{u"/", false, 1},
                    Key{u"\xF700", false, 1}, Key{u"\x0665", false, 1}, Key{u"", false, 1},
                    Key{u"12", false, 1}, Key{u"\x08\x08", false, 1}));

TEST_F(TimecodeButton, AnAcceptedEntryTellsTheOwnerTwiceInOneStep) {
    button.setState(1);
    type("2000000");
    EXPECT_TRUE(button.handleKey(QStringLiteral("\r")));
    EXPECT_EQ(button.state(), 0);
    EXPECT_EQ(title(), "02:00:00:00");
    EXPECT_EQ(committed(), tc("02:00:00:00"));
    rig.controller.undo();
    EXPECT_EQ(committed(), tc("01:00:00:00"));
    EXPECT_FALSE(rig.controller.undoManager().canUndo());
}

struct Entry {
    std::uint64_t rate;
    const char* digits;
    bool accepted;
    const char* fieldsAfter;
};

class Validation : public TimecodeButton, public testing::WithParamInterface<Entry> {};

TEST_P(Validation, WritesFieldsAsItGoesAndStopsAtTheFirstBadOne) {
    const auto& given = GetParam();
    rig.controller.setFrameRate(given.rate);
    button.setBcdValue(tc("01:02:03:04"));
    button.setState(1);
    type(given.digits);
    EXPECT_EQ(button.handleKey(QStringLiteral("\r")), given.accepted);
    EXPECT_EQ(timecodeText(button.bcdValue()), given.fieldsAfter);
    EXPECT_EQ(button.state(), given.accepted ? 0 : 1);
    EXPECT_EQ(title(), given.accepted ? given.fieldsAfter : "01:02:03:04");
    EXPECT_EQ(committed(), tc(given.accepted ? given.fieldsAfter : "01:00:00:00"));
}

INSTANTIATE_TEST_SUITE_P(Entries, Validation,
                         testing::Values(Entry{rate::fps30, "23595929", true, "23:59:59:29"},
                                         Entry{rate::fps30, "24000000", false, "24:02:03:04"},
                                         Entry{rate::fps30, "00600000", false, "00:60:03:04"},
                                         Entry{rate::fps30, "00006000", false, "00:00:60:04"},
                                         Entry{rate::fps30, "00000030", false, "00:00:00:30"},
                                         Entry{rate::fps30, "99999999", false, "99:02:03:04"},
                                         Entry{rate::fps25, "00000025", false, "00:00:00:25"},
                                         Entry{rate::fps25, "00000024", true, "00:00:00:24"},
                                         Entry{rate::fps24, "00000024", false, "00:00:00:24"},
                                         Entry{rate::fps30Drop, "00010000", false, "00:01:00:00"},
                                         Entry{rate::fps30Drop, "00010001", false, "00:01:00:01"},
                                         Entry{rate::fps30Drop, "00010002", true, "00:01:00:02"},
                                         Entry{rate::fps30Drop, "00100000", true, "00:10:00:00"},
                                         Entry{rate::fps30Drop, "00010100", true, "00:01:01:00"}));

TEST_F(TimecodeButton, AnInvalidEntryCannotBeSwitchedOff) {
    button.setState(1);
    type("24000000");
    button.setState(0);
    EXPECT_EQ(button.state(), 1);
    EXPECT_EQ(entry(), "24:00:00:00");
    EXPECT_EQ(button.hours(), 24u);
    type("\x08\x08\x08\x08\x08\x08\x08");
    EXPECT_EQ(entry(), "00:00:00:02");
    button.setState(0);
    EXPECT_EQ(committed(), tc("00:00:00:02"));
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

TEST_F(TimecodeButton, KeysWhileOffAreNoEntry) {
    QTest::keyClicks(&button, QStringLiteral("5\r\t"));
    EXPECT_EQ(entry(), "01:00:00:00");
    EXPECT_FALSE(rig.controller.undoManager().canUndo());
}

TEST_F(TimecodeButton, EachKeyThatCommitsDoes) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Space);
        ASSERT_EQ(button.state(), 1);
        QTest::keyClicks(&button, QStringLiteral("4000000"));
        QTest::keyClick(&button, key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        EXPECT_EQ(button.state(), 0) << key;
        EXPECT_EQ(committed(), tc("04:00:00:00")) << key;
        rig.controller.setStartTime(tc("01:00:00:00"), 0, {});
    }
}

TEST_F(TimecodeButton, BothDeleteKeysAndKeypadDigitsTypeAsWell) {
    button.setState(1);
    QTest::keyClick(&button, Qt::Key_7, Qt::KeypadModifier);
    QTest::keyClick(&button, Qt::Key_8, Qt::KeypadModifier);
    QTest::keyClick(&button, Qt::Key_Backspace);
    EXPECT_EQ(entry(), "00:00:00:07");
    QTest::keyClick(&button, Qt::Key_Delete);
    EXPECT_EQ(entry(), "00:00:00:00");
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

TEST_F(TimecodeButton, ControlKeysAreNoDigits) {
    button.setState(1);
    QTest::keyClick(&button, Qt::Key_5, Qt::ControlModifier);
    QTest::keyClick(&button, Qt::Key_5, Qt::AltModifier);
    EXPECT_EQ(entry(), "01:00:00:00");
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

TEST_F(TimecodeButton, PastesATimeAndIgnoresRubbish) {
    button.setState(1);
    const auto paste = [this](const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        QTest::keySequence(&button, QKeySequence::Paste);
        return entry();
    };
    EXPECT_EQ(paste("01:02:03:04"), "01:02:03:04");
    EXPECT_EQ(paste(" 05:06:07:08\n"), "05:06:07:08");
    for (const char* rubbish :
         {"", "5", "hello", "1:2:3:4", "01:02:03:04:05", "0x:00:00:00", "٠١:٠٢:٠٣:٠٤"})
        EXPECT_EQ(paste(rubbish), "05:06:07:08") << rubbish;
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(committed(), tc("05:06:07:08"));
}

TEST_F(TimecodeButton, PastesATimeHoweverItIsWritten) {
    for (const char* text : {"01020304", "01:02:03;04", "01;02;03;04", "01:02:03.04"}) {
        button.setBcdValue(0);
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        button.paste();
        EXPECT_EQ(button.state(), 1) << "an entry begins";
        EXPECT_EQ(entry(), "01:02:03:04") << text;
        button.setState(0);
    }
}

TEST_F(TimecodeButton, SaysThatWhatIsPastedIsNoTime) {
    QApplication::clipboard()->setText(QStringLiteral("<b>soon</b>"));
    button.paste();
    EXPECT_EQ(button.state(), 0);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;b&gt;soon")));
    QToolTip::hideText();
}

TEST_F(TimecodeButton, AnInputMethodTypesNothing) {
    button.setState(1);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("12"));
    QApplication::sendEvent(&button, &event);
    EXPECT_EQ(entry(), "01:00:00:00");
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

struct Refusal {
    const char* digits;
    const char* reason;
};

class RefusedTime : public TimecodeButton, public testing::WithParamInterface<Refusal> {};

TEST_P(RefusedTime, SaysWhyToAssistiveTechnologyUntilItIsTypedAfresh) {
    rig.controller.setFrameRate(rate::fps25);
    button.setState(1);
    type(GetParam().digits);
    const auto shown = button.accessibleDescription();
    EXPECT_FALSE(button.handleKey(QStringLiteral("\r")));
    EXPECT_EQ(button.refusal().toStdString(), GetParam().reason);
    EXPECT_EQ(button.accessibleDescription(), shown + QStringLiteral(", ") + button.refusal());
    button.setState(0);
    EXPECT_FALSE(button.refusal().isEmpty());
    type("8");
    EXPECT_EQ(button.refusal(), QString());
    EXPECT_EQ(button.accessibleDescription(), button.alternateTitle());
}

INSTANTIATE_TEST_SUITE_P(Digits, RefusedTime,
                         testing::Values(Refusal{"24000000", "no hour 24"},
                                         Refusal{"99999999", "no hour 99"},
                                         Refusal{"00600000", "no minute 60"},
                                         Refusal{"00007500", "no second 75"},
                                         Refusal{"00000059", "no frame 59 at 25 fps"}));

TEST_F(TimecodeButton, BegunAfreshItIsClearedByTheNextDigitOnly) {
    button.setState(1);
    type("5959");
    EXPECT_FALSE(button.handleKey(QStringLiteral("\r")));
    button.beginAfresh();
    EXPECT_EQ(entry(), "00:00:59:59");
    type("1100000");
    EXPECT_EQ(entry(), "01:10:00:00");
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
