#include "controls/AddToBatchPanel.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

struct Panel : testing::Test {
    /// Shows the panel and has the operator do that as soon as it is up.
    int run(const std::function<void()>& act) {
        QTimer::singleShot(0, &panel, act);
        return panel.runModal();
    }
    QPushButton* button(QDialogButtonBox::StandardButton which) {
        return panel.findChild<QDialogButtonBox*>()->button(which);
    }

    AddToBatchPanel panel;
    QLineEdit* reelField = panel.findChild<QLineEdit*>(u"reelField"_qs);
    QLineEdit* titleField = panel.findChild<QLineEdit*>(u"titleField"_qs);
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
    EXPECT_EQ(reelField->accessibleName(), u"Reel number"_qs);
    EXPECT_EQ(titleField->accessibleName(), u"Title"_qs);
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
    EXPECT_EQ(reelField->text(), u"255"_qs);
    EXPECT_EQ(panel.reel(), 255u);
    panel.setReel(UINT64_MAX);
    EXPECT_EQ(panel.reel(), UINT64_MAX);
    for (const auto& text : {QString(), u"reel"_qs, u"-1"_qs}) {
        reelField->setText(text);
        EXPECT_EQ(panel.reel(), 0u);
    }
}

TEST_F(Panel, TheProposedReelIsOverwrittenByTypingAndTakesDigitsOnly) {
    panel.setReel(2);
    run([&] {
        QTest::keyClicks(reelField, u"1x-7"_qs);
        button(QDialogButtonBox::Ok)->click();
    });
    EXPECT_EQ(panel.reel(), 17u);
}

TEST_F(Panel, TheTitleStaysAndThePlaceholderShowsOnlyInItsPlace) {
    panel.setTitlePlaceholder(u"title here"_qs);
    EXPECT_EQ(titleField->placeholderText(), u"title here"_qs);
    EXPECT_EQ(panel.title(), QString());
    run([&] {
        QTest::keyClicks(titleField, u"Act one"_qs);
        button(QDialogButtonBox::Ok)->click();
    });
    panel.setTitlePlaceholder(u"title here"_qs);
    run([&] {
        EXPECT_EQ(titleField->text(), u"Act one"_qs);
        panel.reject();
    });
    EXPECT_EQ(panel.title(), u"Act one"_qs);
}

} // namespace
