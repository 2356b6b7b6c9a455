#include "controls/AddToBatchPanel.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct Panel : testing::Test {
    /// Shows the panel; the operator acts as soon as it opens.
    int run(const std::function<void()>& act) {
        QTimer::singleShot(0, &panel, act);
        return panel.runModal();
    }
    QPushButton* button(QDialogButtonBox::StandardButton which) {
        return panel.findChild<QDialogButtonBox*>()->button(which);
    }

    AddToBatchPanel panel;
    QLineEdit* reelField = panel.findChild<QLineEdit*>(u"reelField"_s);
    QLineEdit* titleField = panel.findChild<QLineEdit*>(u"titleField"_s);
};

TEST_F(Panel, EndsByItsButtonsWithTheirCodes) {
    EXPECT_EQ(run([&] { button(QDialogButtonBox::Ok)->click(); }), 1);
    EXPECT_EQ(run([&] { button(QDialogButtonBox::Cancel)->click(); }), 0);
    EXPECT_EQ(run([&] { QTest::keyClick(titleField, Qt::Key_Return); }), 1);
    EXPECT_EQ(run([&] { QTest::keyClick(titleField, Qt::Key_Escape); }), 0);
    EXPECT_EQ(run([&] { panel.close(); }), 0);
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(Panel, ItsFieldsAreNamedForAssistiveTechnology) {
    EXPECT_EQ(reelField->accessibleName(), u"Reel number"_s);
    EXPECT_EQ(titleField->accessibleName(), u"Title"_s);
}

TEST_F(Panel, HoldsUpTheWholeApplicationWhileItIsShown) {
    run([&] {
        EXPECT_TRUE(panel.isModal());
        EXPECT_EQ(panel.windowModality(), Qt::ApplicationModal);
        panel.reject();
    });
}

TEST_F(Panel, ReelsAreUnsignedAndTextThatIsNoNumberIsZero) {
    panel.setReel(255);
    EXPECT_EQ(reelField->text(), u"255"_s);
    EXPECT_EQ(panel.reel(), 255u);
    panel.setReel(UINT64_MAX);
    EXPECT_EQ(panel.reel(), UINT64_MAX);
    for (const auto& text : {QString(), u"reel"_s, u"-1"_s}) {
        reelField->setText(text);
        EXPECT_EQ(panel.reel(), 0u);
    }
}

TEST_F(Panel, TheProposedReelIsOverwrittenByTyping) {
    panel.setReel(2);
    run([&] {
        QTest::keyClicks(reelField, u"17"_s);
        button(QDialogButtonBox::Ok)->click();
    });
    EXPECT_EQ(panel.reel(), 17u);
}

TEST_F(Panel, AReelThatIsNoneIsRefusedVisiblyAndNotMadeIntoAnother) {
    const auto* hint = panel.findChild<QWidget*>(u"reelHint"_s);
    for (const auto& typed : {u"1.5"_s, u"-5"_s, u"1x-7"_s, u"1 2"_s, u"1234567890"_s, u"٣"_s}) {
        panel.setReel(2);
        EXPECT_EQ(run([&] {
                      EXPECT_FALSE(hint->isVisible());
                      QApplication::clipboard()->setText(typed);
                      reelField->paste();
                      EXPECT_EQ(reelField->text(), typed);
                      EXPECT_TRUE(hint->isVisible());
                      EXPECT_FALSE(reelField->accessibleDescription().isEmpty());
                      EXPECT_FALSE(button(QDialogButtonBox::Ok)->isEnabled());
                      QTest::keyClick(reelField, Qt::Key_Return);
                      EXPECT_TRUE(panel.isVisible());
                      panel.reject();
                  }),
                  panelCancelled);
    }
}

TEST_F(Panel, APastedReelMayHaveALineBreak) {
    for (const auto& pasted : {u"12\n"_s, u"\t12 "_s, u"12\r\n"_s}) {
        QApplication::clipboard()->setText(pasted);
        panel.setReel(2);
        EXPECT_EQ(run([&] {
                      reelField->paste();
                      QTest::keyClick(reelField, Qt::Key_Return);
                  }),
                  panelConfirmed);
        EXPECT_EQ(panel.reel(), 12u);
    }
}

TEST_F(Panel, NineDigitsFitIntoTheReelField) {
    EXPECT_GT(reelField->width(), reelField->fontMetrics().horizontalAdvance(u"999999999"_s));
}

TEST_F(Panel, LineBreaksInAPastedTitleAreSpaces) {
    QApplication::clipboard()->setText(u"Act one\nScene two\r\nTake 3"_s);
    run([&] {
        titleField->paste();
        button(QDialogButtonBox::Ok)->click();
    });
    EXPECT_EQ(panel.title(), u"Act one Scene two Take 3"_s);
}

TEST_F(Panel, TheTitleStaysAndThePlaceholderShowsOnlyInItsPlace) {
    panel.setTitlePlaceholder(u"title here"_s);
    EXPECT_EQ(titleField->placeholderText(), u"title here"_s);
    EXPECT_EQ(panel.title(), QString());
    run([&] {
        QTest::keyClicks(titleField, u"Act one"_s);
        button(QDialogButtonBox::Ok)->click();
    });
    panel.setTitlePlaceholder(u"title here"_s);
    run([&] {
        EXPECT_EQ(titleField->text(), u"Act one"_s);
        panel.reject();
    });
    EXPECT_EQ(panel.title(), u"Act one"_s);
}

} // namespace
