#include "controls/ClockDisplay.h"
#include "controls/timecode_well.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <gtest/gtest.h>

#include <functional>

using namespace vexa;
using namespace Qt::StringLiterals;

namespace {

/// Records the areas painted of a display and of the widget beneath it.
struct PaintedArea final : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            area += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion area;
};

struct Clock : testing::Test {
    Clock() {
        AccessibleReading::install();
        clock.setGeometry(10, 10, 700, 120);
        window.resize(720, 200);
        window.show();
        QCoreApplication::processEvents();
    }

    QWidget window;
    ClockDisplay clock{&window};
};

TEST_F(Clock, AFramePaintsTheDigitsThatChangeAndNothingBeneath) {
    clock.setBcdValue(0x01020304);
    QCoreApplication::processEvents();
    PaintedArea digits;
    PaintedArea ground;
    clock.installEventFilter(&digits);
    window.installEventFilter(&ground);
    clock.setBcdValue(0x01020305);
    QCoreApplication::processEvents();
    EXPECT_FALSE(digits.area.isEmpty());
    EXPECT_LT(digits.area.boundingRect().width(), clock.width() / 8);
    EXPECT_TRUE(ground.area.isEmpty());
}

TEST_F(Clock, PaintsAChangedDigitAsIfAllWerePainted) {
    clock.setBcdValue(0x0a1e3b09);
    const auto fresh = clock.grab().toImage();
    clock.setBcdValue(0x0a1e3b08);
    clock.setBcdValue(0x0a1e3b09);
    QCoreApplication::processEvents();
    EXPECT_EQ(clock.grab().toImage(), fresh);
}

class ClockAtScale : public Clock, public testing::WithParamInterface<qreal> {};

QImage painted(const QWidget& widget, const std::function<void(QImage&)>& paint) {
    const auto ratio = ClockAtScale::GetParam();
    QImage image(widget.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(TimecodeWell::ground());
    paint(image);
    return image;
}

TEST_P(ClockAtScale, KeepsPicturesThatEqualWhatIsDrawn) {
    for (const auto& size : {QSize(700, 120), QSize(703, 400), QSize(200, 30)}) {
        clock.resize(size);
        const auto drawn = painted(clock, [this](QImage& image) {
            QPainter painter(&image);
            painter.setPen(Qt::yellow);
            const TimecodeWell well(clock.rect(), TimecodeWell::Digits::fillHeight);
            for (qsizetype i = 0; i < clock.reading().size(); ++i)
                well.paintCharacter(painter, i, clock.reading()[i]);
        });
        const auto shown = [this] {
            return painted(clock, [this](QImage& image) { clock.render(&image); });
        };
        clock.setDigitColor(Qt::red);
        EXPECT_NE(shown(), drawn);
        clock.setDigitColor(Qt::yellow);
        EXPECT_EQ(shown(), drawn) << "pictures made";
        EXPECT_EQ(shown(), drawn) << "pictures kept";
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, ClockAtScale, testing::Values(1, 1.25, 1.5, 2, 3));

TEST_F(Clock, IsBroughtIntoLineWithTheRate) {
    clock.setFrameRate(frameRateForCode(rate::fps25));
    clock.setBcdValue(0x1b);
    clock.frameRateChanged();
    EXPECT_EQ(clock.reading(), u"00:00:01:02"_s);
    clock.setBcdValue(UINT64_MAX << 32 | 0x02000000);
    EXPECT_EQ(clock.reading(), u"02:00:00:00"_s) << "cut to 32 bits";
}

TEST_F(Clock, FollowsAnother) {
    clock.setBcdValue(0x01000000);
    ClockDisplay other;
    other.follow(clock);
    EXPECT_EQ(other.reading(), u"01:00:00:00"_s);
    clock.setBcdValue(0x01000001);
    EXPECT_EQ(other.reading(), u"01:00:00:01"_s);
}

TEST_F(Clock, IsALabelThatCanBeReadAtAnyMoment) {
    const auto* seen = QAccessible::queryAccessibleInterface(&clock);
    EXPECT_EQ(seen->role(), QAccessible::StaticText);
    EXPECT_FALSE(seen->state().checkable);
    for (const int frame : {1, 2, 3}) {
        clock.setBcdValue(static_cast<std::uint64_t>(frame));
        EXPECT_EQ(seen->text(QAccessible::Description), u"00:00:00:0%1"_s.arg(frame));
    }
}

} // namespace
