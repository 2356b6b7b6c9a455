#include "controls/VexaBatchTableHeader.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <gmock/gmock.h>

#include <cmath>
#include <vector>

using namespace vexa;
using namespace Qt::StringLiterals;
using testing::IsEmpty;

namespace {

constexpr int height = 20;
constexpr int width = 300;

/// Six columns, 40 wide and 5 apart.
struct Header : testing::TestWithParam<int> {
    Header() {
        header.setModel(&model);
        header.setSpacing(5);
        for (int column = 0; column < model.columnCount(); ++column)
            header.resizeSection(column, 45);
    }

    QImage painted(const QStringList& titles, QPointF origin = {}) {
        model.setHorizontalHeaderLabels(titles);
        QImage image(width * scale, height * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        QPainter painter(&image);
        header.drawRect(painter, QRectF(origin, QSizeF(width, height)));
        return image;
    }

    /// The device columns of exactly that gray at half the height.
    std::vector<int> columnsOf(const QImage& image, int gray) {
        std::vector<int> columns;
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, image.height() / 2) == QColor(gray, gray, gray))
                columns.push_back(x);
        return columns;
    }

    const int scale = GetParam();
    QStandardItemModel model{0, 6};
    VexaBatchTableHeader header;

    // Grays of 0.3 and 0.1 with an opacity of 0.6 over white.
    static constexpr int light = 148;
    static constexpr int dark = 117;
};

const QStringList blank{{}, {}, {}, {}, {}, {}};

TEST_P(Header, EveryColumnHasALightLineAtItsLeftAndADarkOneBeforeTheNext) {
    const auto image = painted(blank);
    // Dividers start at 0.5 and 44.5, and repeat every 45: each fills the device pixel that
    // contains it.
    std::vector<int> lights;
    std::vector<int> darks;
    for (int column = 0; column < 6; ++column) {
        lights.push_back(static_cast<int>((0.5 + 45 * column) * scale));
        darks.push_back(static_cast<int>((44.5 + 45 * column) * scale));
    }
    EXPECT_EQ(columnsOf(image, light), lights);
    EXPECT_EQ(columnsOf(image, dark), darks);
}

TEST_P(Header, LinesLeaveOnePointAboveAndBelow) {
    const auto image = painted(blank);
    const int x = static_cast<int>(0.5 * scale);
    for (int y = 0; y < image.height(); ++y) {
        const bool outside = y < scale || y >= image.height() - scale;
        EXPECT_EQ(image.pixelColor(x, y), outside ? QColor(Qt::white) : QColor(light, light, light))
            << y;
    }
}

TEST_P(Header, TitlesBeginFivePointsIntoTheirColumnsAndTwoBelowTheTop) {
    const auto image = painted({{}, u"H"_s, {}, {}, {}, {}});
    const QFontMetrics metrics(header.lucida10gray().font);
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 46 * scale; x < 89 * scale; ++x)
            if (image.pixelColor(x, y) != Qt::white)
                ink |= QRect(x, y, 1, 1);
    ASSERT_FALSE(ink.isEmpty());
    const auto glyph = metrics.tightBoundingRect(u"H"_s);
    EXPECT_NEAR(1.0 * ink.left() / scale, 50 + glyph.left(), 1);
    EXPECT_NEAR(1.0 * ink.top() / scale, 2 + metrics.ascent() + glyph.top(), 1);
}

TEST_P(Header, ATitleIsClippedAtTheWidthOfItsColumn) {
    const auto image = painted({u"HHHHHHHHHHHHHHHHHHHH"_s, {}, {}, {}, {}, {}});
    for (int y = 0; y < image.height(); ++y)
        for (int x = 46 * scale; x < 89 * scale; ++x)
            ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white)) << x << ' ' << y;
}

TEST_P(Header, FollowsTheOriginOfItsBounds) {
    const auto image = painted(blank, {-45, 0});
    EXPECT_EQ(columnsOf(image, light).front(), static_cast<int>(0.5 * scale));
    EXPECT_EQ(columnsOf(image, light).size(), 5u);
}

TEST_P(Header, WithoutColumnsNothingIsDrawn) {
    model.setColumnCount(0);
    const auto image = painted({});
    EXPECT_THAT(columnsOf(image, light), IsEmpty());
    EXPECT_THAT(columnsOf(image, dark), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Scales, Header, testing::Values(1, 2));

TEST(HeaderText, IsLucidaGrandeOfNinePointsInGray) {
    const VexaBatchTableHeader header;
    EXPECT_EQ(header.lucida10gray().font.families().constFirst(), u"Lucida Grande"_s);
    EXPECT_EQ(header.lucida10gray().font.pointSize(), 9);
    EXPECT_EQ(header.lucida10gray().color, QColor(128, 128, 128));
}

TEST(HeaderText, AColumnThatIsFittedToItsTitleHoldsItsOwnTypeAndTheSpace) {
    QStandardItemModel model(0, 1);
    model.setHorizontalHeaderLabels({u"Start"_s});
    VexaBatchTableHeader header;
    header.setModel(&model);
    header.setSpacing(5);
    const QFontMetrics metrics(header.lucida10gray().font);
    EXPECT_EQ(header.sectionSizeHint(0), metrics.horizontalAdvance(u"Start"_s) + 10);
    EXPECT_EQ(header.sizeHint().height(), metrics.height() + 4);
}

TEST(HeaderText, ReadsOnTheGroundOfTheHeader) {
    VexaBatchTableHeader header;
    header.resize(100, height);
    const auto ground = header.grab().toImage().pixelColor(50, 10);
    const auto luminance = [](const QColor& gray) { return std::pow(gray.greenF(), 2.2); };
    const double contrast =
        (luminance(header.lucida10gray().color) + 0.05) / (luminance(ground) + 0.05);
    EXPECT_GE(contrast, 4.5);
}

} // namespace
