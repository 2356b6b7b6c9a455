#include "controls/AccessibleReading.h"
#include "controls/StatusLineView.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct Status : testing::Test {
    Status() { AccessibleReading::install(); }

    StatusLineView view;
    QLabel& status = *view.findChild<QLabel*>(u"statusLabel"_s);
    QAbstractButton& destination = *view.findChild<QAbstractButton*>(u"destinationButton"_s);
};

TEST_F(Status, SetsConcernsOffFromWhatIsAtRest) {
    view.tell({u"12 items"_s, false});
    const auto atRest = status.palette().color(QPalette::WindowText);
    view.tell({u"the file\ncould not be written"_s, true});
    EXPECT_EQ(status.text(), u"the file could not be written"_s);
    EXPECT_EQ(status.accessibleDescription(), status.text());
    EXPECT_NE(status.palette().color(QPalette::WindowText), atRest);
    EXPECT_EQ(status.accessibleName(), u"Status"_s);
}

TEST_F(Status, TheDestinationIsAButtonThatSaysWhatWasSent) {
    view.tellDestination(u"Timecode Box · stop · 2 s ago"_s, true);
    auto* seen = QAccessible::queryAccessibleInterface(&destination);
    EXPECT_EQ(seen->role(), QAccessible::Button);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Destination"_s);
    EXPECT_EQ(seen->text(QAccessible::Description), u"Timecode Box · stop · 2 s ago"_s);
    QSignalSpy pressed(&view, &StatusLineView::destinationPressed);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    // Qt shows the button pressed for a moment before it counts as clicked.
    EXPECT_TRUE(!pressed.empty() || pressed.wait());
    EXPECT_EQ(pressed.size(), 1);
}

TEST_F(Status, ShowsWhetherTheDestinationIsThere) {
    view.tellDestination(u"Timecode Box"_s, true);
    const auto there = destination.grab().toImage();
    view.tellDestination(u"Timecode Box"_s, false);
    EXPECT_NE(destination.grab().toImage(), there);
}

} // namespace
