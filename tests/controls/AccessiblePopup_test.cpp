#include "controls/AccessiblePopup.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

struct Popup : testing::Test {
    Popup() {
        popup.addItems({QStringLiteral("first"), QStringLiteral("second")});
        popup.setAccessibleName(QStringLiteral("Name"));
        popup.setAccessibleDescription(QStringLiteral("Description"));
    }

    QComboBox popup;
    AccessiblePopup seen{popup};
};

TEST_F(Popup, KeepsItsNameAndTellsWhatIsSelected) {
    popup.setCurrentIndex(1);
    EXPECT_EQ(seen.role(), QAccessible::ComboBox);
    EXPECT_EQ(seen.text(QAccessible::Name), QStringLiteral("Name"));
    EXPECT_EQ(seen.text(QAccessible::Value), QStringLiteral("second"));
    EXPECT_EQ(seen.text(QAccessible::Description), QStringLiteral("Description"));
}

TEST_F(Popup, HoldsItsList) {
    ASSERT_EQ(seen.childCount(), 1);
    auto* const list = seen.child(0);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->object(), popup.view());
    EXPECT_EQ(list->childCount(), 2);
    EXPECT_EQ(seen.indexOfChild(list), 0);
    EXPECT_EQ(seen.child(1), nullptr);
}

TEST_F(Popup, OpensAndClosesItsListUnlessDisabled) {
    using Actions = QAccessibleActionInterface;
    for (const auto& action : {Actions::showMenuAction(), Actions::pressAction()}) {
        EXPECT_TRUE(seen.actionNames().contains(action));
        seen.doAction(action);
        EXPECT_TRUE(popup.view()->isVisible());
        seen.doAction(action);
        EXPECT_FALSE(popup.view()->isVisible());
    }
    popup.setEnabled(false);
    EXPECT_FALSE(seen.actionNames().contains(Actions::pressAction()));
    seen.doAction(Actions::pressAction());
    EXPECT_FALSE(popup.view()->isVisible());
}

TEST_F(Popup, IsInstalledForPopUpListsAlone) {
    AccessiblePopup::install();
    QComboBox other;
    QWidget widget;
    const auto isAPopup = [](QWidget& object) {
        return dynamic_cast<AccessiblePopup*>(QAccessible::queryAccessibleInterface(&object)) !=
               nullptr;
    };
    EXPECT_TRUE(isAPopup(other));
    EXPECT_FALSE(isAPopup(widget));
}

} // namespace
