#include "controls/TimecodeButtonTest.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

using TimecodeButton = TimecodeButtonTest;

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

TEST_F(TimecodeButton, ControlKeysAreNoDigits) {
    button.setState(1);
    QTest::keyClick(&button, Qt::Key_5, Qt::ControlModifier);
    QTest::keyClick(&button, Qt::Key_5, Qt::AltModifier);
    EXPECT_EQ(entry(), "01:00:00:00");
}

TEST_F(TimecodeButton, AnInputMethodTypesNothing) {
    button.setState(1);
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("12"));
    QApplication::sendEvent(&button, &event);
    EXPECT_EQ(entry(), "01:00:00:00");
}

} // namespace
