#include "controls/AccessibleButton.h"
#include "controls/KelGrayTextMatrix.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

void toggle(QAbstractButton& button) {
    AccessibleButton(button).doAction(QAccessibleActionInterface::toggleAction());
}

TEST(AccessibleButton, ToggledIsClicked) {
    QCheckBox box;
    const QSignalSpy clicked(&box, &QAbstractButton::clicked);
    toggle(box);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(AccessibleButton(box).state().checked);
    toggle(box);
    EXPECT_EQ(clicked.count(), 2);
    EXPECT_FALSE(AccessibleButton(box).state().checked);
}

TEST(AccessibleButton, ToggledInAMatrixIsItsAction) {
    KelGrayTextMatrix matrix;
    auto* const cell = new QRadioButton(&matrix);
    cell->setProperty("tag", 2);
    matrix.awakeFromNib();
    const QSignalSpy action(&matrix, &KelGrayTextMatrix::action);
    toggle(*cell);
    EXPECT_EQ(action.count(), 1);
    EXPECT_EQ(matrix.selectedTag(), 2u);
}

TEST(AccessibleButton, OffersNothingWhileDisabled) {
    QCheckBox box;
    EXPECT_TRUE(AccessibleButton(box).actionNames().contains(QStringLiteral("Toggle")));
    box.setEnabled(false);
    EXPECT_FALSE(AccessibleButton(box).actionNames().contains(QStringLiteral("Toggle")));
    const QSignalSpy clicked(&box, &QAbstractButton::clicked);
    toggle(box);
    EXPECT_EQ(clicked.count(), 0);
}

TEST(AccessibleButton, IsInstalledForCheckableButtonsAlone) {
    AccessibleButton::install();
    QCheckBox box;
    QRadioButton radio;
    QPushButton push;
    const auto seen = [](QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget);
    };
    EXPECT_NE(dynamic_cast<AccessibleButton*>(seen(box)), nullptr);
    EXPECT_EQ(seen(box)->role(), QAccessible::CheckBox);
    EXPECT_EQ(seen(radio)->role(), QAccessible::RadioButton);
    EXPECT_EQ(dynamic_cast<AccessibleButton*>(seen(push)), nullptr);
}

} // namespace
