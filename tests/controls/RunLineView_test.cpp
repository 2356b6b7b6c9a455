#include "controls/ElidedLabel.h"
#include "controls/RunLineView.h"

#include <QApplication>
#include <QImage>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

struct View : testing::Test {
    View() {
        AccessibleReading::install();
        view.resize(600, view.sizeHint().height());
        view.show();
    }

    RunLineView view;
    const RunLine line{u"playing"_s, u"4:10 left"_s, u"item 2 of 5"_s, u"1:02:33 of the run"_s,
                       u"playing Part one · item 2 of 5"_s};
};

TEST_F(View, IsReadAsOneSentence) {
    view.tell(Phase::running, line);
    const auto* seen = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(seen->role(), QAccessible::StaticText);
    EXPECT_EQ(seen->text(QAccessible::Description), u"playing Part one · item 2 of 5"_s);
}

TEST_F(View, TheTitleStandsBetweenTheWordsAndTheTimeLeft) {
    view.tell(Phase::running, line);
    const auto between = view.title().geometry();
    EXPECT_GT(between.left(), view.fontMetrics().horizontalAdvance(line.words));
    EXPECT_LT(between.right(), 600 - view.fontMetrics().horizontalAdvance(line.left));
    view.tell(Phase::betweenItems, {u"next a title as long as all this in 3 s"_s});
    EXPECT_GT(view.title().geometry().left(), between.left());
}

TEST_F(View, ShowsTheStateByAShapeOfItsOwn) {
    std::vector<QImage> shown;
    for (const auto phase : {Phase::stopped, Phase::running, Phase::paused, Phase::betweenItems,
                             Phase::awaitingReel}) {
        view.tell(phase, {});
        const auto image = view.grab().toImage().convertToFormat(QImage::Format_Mono);
        for (const auto& other : shown)
            EXPECT_NE(image, other) << static_cast<int>(phase);
        shown.push_back(image);
    }
}

TEST_F(View, LinesThatAreTooLongOverlapNothing) {
    view.resize(120, view.height());
    view.tell(Phase::running, {QString(300, u'W'), u"4:10 left"_s});
    EXPECT_EQ(view.title().width(), 0);
    EXPECT_EQ(view.sizeHint().width(), 0) << "and widen no window";
}

} // namespace
