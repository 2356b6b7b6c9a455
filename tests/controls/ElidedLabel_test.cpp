#include "controls/ElidedLabel.h"
#include "controls/outlet_adapters.h"

#include <QImage>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

/// A label in a window, filled through its outlet as by the controller.
struct Label : testing::Test {
    Label() {
        layout.addWidget(&label);
        window.resize(300, 100);
        window.show();
    }
    QImage shown(const QString& text) {
        outlet.setStringValue(text);
        return label.grab().toImage();
    }

    QWidget window;
    QVBoxLayout layout{&window};
    ElidedLabel label;
    TextFieldOutlet outlet{label};
};

TEST_F(Label, HoweverLongItsTextTakesNoRoomForIt) {
    const auto least = window.minimumSizeHint();
    const auto size = label.size();
    for (const auto& text : {QString(300, u'W'), u"one\ntwo\nthree"_s}) {
        outlet.setStringValue(text);
        EXPECT_EQ(window.minimumSizeHint(), least);
        EXPECT_EQ(label.sizeHint(), label.minimumSizeHint());
        EXPECT_EQ(label.size(), size);
    }
    EXPECT_EQ(label.height(), label.fontMetrics().height());
}

TEST_F(Label, ShowsTheBeginningOfALongText) {
    EXPECT_EQ(shown(QString(300, u'W')), shown(QString(400, u'W')));
    EXPECT_NE(shown(QString(300, u'W')), shown(u"M"_s + QString(300, u'W')));
    EXPECT_NE(shown(u"W"_s), shown({}));
}

TEST_F(Label, ShowsLineBreaksAsSpacesAndHasTheFullTextInItsToolTip) {
    outlet.setStringValue(u"Part\none"_s);
    EXPECT_EQ(label.text(), u"Part one"_s);
    EXPECT_EQ(label.accessibleDescription(), u"Part one"_s);
    EXPECT_EQ(label.toolTip(), u"Part\none"_s);
    EXPECT_EQ(shown(u"Part\none"_s), shown(u"Part one"_s));
}

TEST_F(Label, ShowsMarkupAsItIs) {
    EXPECT_NE(shown(u"<b>x</b>"_s), shown(u"x"_s));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

} // namespace
