#include "controls/timecode_well.h"

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

} // namespace
