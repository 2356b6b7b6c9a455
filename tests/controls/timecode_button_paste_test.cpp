#include "controls/TimecodeButtonTest.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

using TimecodeButton = TimecodeButtonTest;

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

} // namespace
