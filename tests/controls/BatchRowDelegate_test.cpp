#include "controls/BatchRowDelegate.h"
#include "controls/BatchTableModel.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

constexpr QRect cell{0, 0, 80, 24};
constexpr QRect signPlace{63, 0, 17, 24};

struct RowDelegate : testing::Test {
    RowDelegate() {
        model.setColumnIdentifiers({item_key::reel, item_key::title});
        item = list.addItemWithReel(7, u"HHH"_s, {0, 0, 0, 0});
        model.reloadData();
        delegate.setSpacing(5);
    }

    QImage painted(int column, StripeMark mark, QStyle::State state = QStyle::State_Enabled) {
        model.markItem(item, mark);
        QImage image(cell.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = cell;
        option.state = state;
        option.showDecorationSelected = true;
        option.palette = QPalette(Qt::lightGray, Qt::white);
        delegate.paint(&painter, option, model.index(0, column));
        return image;
    }

    VexaBatchStripeData list{nullptr};
    BatchTableModel model;
    BatchRowDelegate delegate;
    BatchItemRef item;
};

TEST_F(RowDelegate, TextBeginsWhereTheTitlesOfTheHeaderDo) {
    const auto image = painted(1, StripeMark::none);
    for (int y = 0; y < cell.height(); ++y)
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
    EXPECT_NE(image.copy(5, 0, 8, cell.height()),
              painted(1, StripeMark::none).copy(60, 0, 8, cell.height()));
}

TEST_F(RowDelegate, EveryMarkLooksDifferentInTheFirstColumn) {
    for (const auto state :
         {QStyle::State(QStyle::State_Enabled), QStyle::State_Enabled | QStyle::State_Selected}) {
        const auto none = painted(0, StripeMark::none, state).copy(signPlace);
        const auto underWay = painted(0, StripeMark::underWay, state).copy(signPlace);
        const auto finished = painted(0, StripeMark::finished, state).copy(signPlace);
        EXPECT_NE(underWay, none);
        EXPECT_NE(finished, none);
        EXPECT_NE(underWay, finished);
    }
}

TEST_F(RowDelegate, TheWholeRowUnderWayIsTinted) {
    EXPECT_EQ(painted(1, StripeMark::none).pixelColor(78, 12), QColor(Qt::white));
    EXPECT_NE(painted(1, StripeMark::underWay).pixelColor(78, 12), QColor(Qt::white));
    EXPECT_EQ(painted(1, StripeMark::finished).pixelColor(78, 12), QColor(Qt::white));
}

TEST_F(RowDelegate, TheCurrentCellShowsTheFocusWhereNoSelectionDoes) {
    EXPECT_NE(
        painted(1, StripeMark::none,
                QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange),
        painted(1, StripeMark::none));
}

} // namespace
