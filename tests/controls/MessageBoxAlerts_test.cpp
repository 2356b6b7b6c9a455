#include "controls/MessageBoxAlerts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const Alert threeButtons{
    u"Do you want to save <b>Show</b> & more before proceeding?"_s,
    u"It has never been saved."_s,
    {u"Save"_s, u"Don't Save"_s, u"Cancel"_s},
};
const Alert oneButton{u"Reel 2"_s, u"Load it."_s, {u"OK"_s}};
const Alert unasked{u"Reel 2"_s, u"Load it."_s, {u"OK"_s}, true};

/// Lays out dialogs as one desktop does.
class DesktopStyle : public QProxyStyle {
public:
    explicit DesktopStyle(QDialogButtonBox::ButtonLayout layout) : m_layout(layout) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_DialogButtonLayout ? m_layout
                                             : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    QDialogButtonBox::ButtonLayout m_layout;
};

struct MessageBox : testing::Test {
    /// Shows the alert, operates its box, and returns the answer.
    int answer(const Alert& alert, const std::function<void(QMessageBox&)>& operate) {
        QTimer::singleShot(0, &window, [&] {
            auto* box = window.findChild<QMessageBox*>();
            ASSERT_NE(box, nullptr);
            operate(*box);
            if (box->isVisible())
                box->done(-1);
        });
        return MessageBoxAlerts(window, reactionTime).runModal(alert);
    }

    QWidget window;
    std::chrono::milliseconds reactionTime{0};
};

class ButtonOrder : public MessageBox,
                    public testing::WithParamInterface<QDialogButtonBox::ButtonLayout> {};

TEST_P(ButtonOrder, IsTheAlertsOnEveryDesktop) {
    QApplication::setStyle(new DesktopStyle(GetParam()));
    answer(threeButtons, [](QMessageBox& box) {
        auto buttons = box.buttons();
        std::ranges::sort(buttons, {}, [](const auto* button) { return button->x(); });
        QStringList texts;
        for (const auto* button : buttons)
            texts += button->text().remove(QLatin1Char('&'));
        EXPECT_EQ(texts, QStringList({u"Save"_s, u"Don't Save"_s, u"Cancel"_s}));
    });
}

INSTANTIATE_TEST_SUITE_P(Desktops, ButtonOrder,
                         testing::Values(QDialogButtonBox::WinLayout, QDialogButtonBox::MacLayout,
                                         QDialogButtonBox::KdeLayout,
                                         QDialogButtonBox::GnomeLayout));

TEST_F(MessageBox, AnswersWithTheButtonThatWasPressed) {
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(answer(threeButtons, [i](QMessageBox& box) { box.buttons()[i]->click(); }),
                  alertFirstButton + i);
}

TEST_F(MessageBox, ReturnIsTheFirstButtonAndEscapeTheLast) {
    EXPECT_EQ(answer(threeButtons, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              alertFirstButton);
    EXPECT_EQ(answer(threeButtons, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              alertThirdButton);
}

TEST_F(MessageBox, OneButtonIsNotPressedByEscapeOrByClosing) {
    EXPECT_EQ(answer(oneButton,
                     [](QMessageBox& box) {
                         QTest::keyClick(&box, Qt::Key_Escape);
                         box.close();
                         EXPECT_TRUE(box.isVisible());
                     }),
              alertUnanswered);
    EXPECT_EQ(answer(oneButton, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              alertFirstButton);
}

/// Presses a key repeatedly until the box is answered, for a second at most.
void strike(QMessageBox& box, Qt::Key key) {
    const auto isAnswered = [&] {
        if (box.isVisible())
            QTest::keyClick(box.buttons().constFirst(), key);
        return !box.isVisible();
    };
    EXPECT_TRUE(QTest::qWaitFor(isAnswered, 1000));
}

TEST_F(MessageBox, OneThatComesUnaskedHeedsNoKeyBeforeItCanHaveBeenRead) {
    reactionTime = 1h;
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape})
        EXPECT_EQ(answer(unasked,
                         [&](QMessageBox& box) {
                             ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
                             for (int i = 0; i < 3; ++i)
                                 QTest::keyClick(box.buttons().constFirst(), key);
                             EXPECT_TRUE(box.isVisible());
                         }),
                  alertUnanswered)
            << key;
    EXPECT_EQ(answer(unasked, [](QMessageBox& box) { box.buttons().constFirst()->click(); }),
              alertFirstButton);
}

TEST_F(MessageBox, OneThatComesUnaskedHeedsKeysThereafter) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Space})
        EXPECT_EQ(answer(unasked, [&](QMessageBox& box) { strike(box, key); }), alertFirstButton);
    EXPECT_EQ(answer(oneButton, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              alertFirstButton)
        << "the others at once";
}

TEST_F(MessageBox, AKeyHeldDownSinceBeforeAnswersNothing) {
    EXPECT_EQ(answer(unasked,
                     [](QMessageBox& box) {
                         const auto repeats = [&] {
                             QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, true);
                             QApplication::sendEvent(box.buttons().constFirst(), &again);
                             return !box.isVisible();
                         };
                         EXPECT_FALSE(QTest::qWaitFor(repeats, 50));
                         strike(box, Qt::Key_Return);
                         EXPECT_FALSE(box.isVisible()) << "it is let go and struck again";
                     }),
              alertFirstButton);
}

TEST_F(MessageBox, OneThatComesUnaskedIsReadFromAfar) {
    const auto height = [this](const Alert& alert) {
        int lineHeight = 0;
        answer(alert, [&](QMessageBox& box) {
            for (const auto* label : box.findChildren<QLabel*>())
                if (label->text() == alert.information)
                    lineHeight = label->fontMetrics().height();
        });
        return lineHeight;
    };
    EXPECT_GE(height(unasked), 2 * height(oneButton));
}

TEST_F(MessageBox, TextsAreShownAsTheyAre) {
    answer(threeButtons, [](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.informativeText(), threeButtons.information);
        const auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), threeButtons.message);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
    });
}

} // namespace
