#include "controls/edge_colors.h"
#include "controls/timecode_well.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using namespace vexa;

namespace {

class TimecodeWellOfSize : public testing::TestWithParam<QSize> {};

TEST_P(TimecodeWellOfSize, HasCellsThatMeetAndNeverOverlap) {
    const QRect rectangle(QPoint(3, 5), GetParam());
    const TimecodeWell well(rectangle);
    EXPECT_TRUE(rectangle.contains(well.cell(0)));
    EXPECT_TRUE(rectangle.contains(well.cell(10)));
    for (int position = 1; position < 11; ++position)
        EXPECT_EQ(well.cell(position).left(), well.cell(position - 1).right() + 1)
            << "at position " << position;
}

INSTANTIATE_TEST_SUITE_P(Sizes, TimecodeWellOfSize,
                         testing::Values(QSize(150, 44), QSize(151, 44), QSize(317, 57),
                                         QSize(476, 92), QSize(477, 93), QSize(1800, 300)));

QImage ground(const QColor& edge, bool focused) {
    QImage image(150, 44, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    TimecodeWell(image.rect()).paintGround(painter, edge, focused);
    return image;
}

TEST(TimecodeWell, ShowsTheFocusWhetherOrNotATimeIsTyped) {
    for (const auto& edge : {QColor(), QColor(Qt::green)}) {
        EXPECT_EQ(ground(edge, true).pixelColor(1, 22), focusEdge());
        EXPECT_NE(ground(edge, false).pixelColor(1, 22), focusEdge());
    }
    EXPECT_EQ(ground(Qt::green, true).pixelColor(3, 22), QColor(Qt::green));
    EXPECT_EQ(ground(Qt::green, false).pixelColor(1, 22), QColor(Qt::green));
}

} // namespace
