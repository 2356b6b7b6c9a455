#include "app/MainWindowTest.h"
#include "controls/ClockDisplay.h"
#include "defaults/user_defaults.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

using Window = MainWindowTest;

TEST_F(Window, TheClockGrowsToAThirdOfTheHeightButNotBeyondItsDigits) {
    const auto& clock = outlet<ClockDisplay>("currentTimeButton");
    const auto clockHeight = [&](int width, int height) {
        window.resize(width, height);
        return clock.height();
    };
    EXPECT_EQ(clockHeight(1600, 600), 200);
    EXPECT_EQ(clockHeight(2000, 750), 250);
    const int inATallWindow = clockHeight(760, 1200);
    EXPECT_EQ(inATallWindow, ClockDisplay::heightForDigits(clock.width()));
    EXPECT_EQ(clockHeight(1600, 600), 200) << "and becomes smaller again";
}

TEST_F(Window, TheTableTakesTheExtraRoomAndItsTitlesTheExtraWidth) {
    const auto* header = table.horizontalHeader();
    window.resize(760, 640);
    QCoreApplication::processEvents();
    const int title = header->sectionSize(1);
    const int start = header->sectionSize(2);
    EXPECT_EQ(header->length(), table.viewport()->width());
    window.resize(1060, 640);
    QCoreApplication::processEvents();
    EXPECT_EQ(header->sectionSize(1), title + 300);
    EXPECT_EQ(header->sectionSize(2), start);
}

TEST_F(Window, FitsASmallScreen) {
    const QSize screen(1024 * 2 / 3, 600 * 2 / 3); // 1024 x 600 at 150 %
    const QSize frame(0, 30);
    const auto least = window.minimumSizeHint() + frame;
    EXPECT_EQ(least.boundedTo(screen), least) << least.width() << " x " << least.height();
}

TEST(WindowSize, IsRememberedWithinTheScreen) {
    const CleanDefaults defaults;
    const auto room = QGuiApplication::primaryScreen()->availableSize();
    const QSize given(room.width() - 60, room.height() - 90);
    const auto sizeNow = [] { return MainWindow().size(); };
    const auto atFirst = sizeNow();
    EXPECT_EQ(sizeNow(), atFirst);
    EXPECT_FALSE(defaults::read().windowWidth) << "nothing was changed";
    {
        MainWindow window;
        window.resize(given);
    }
    EXPECT_EQ(sizeNow(), given);
    for (const std::int64_t wrong : {std::int64_t{-1}, std::int64_t{0}, INT64_MAX}) {
        defaults::write({.windowWidth = wrong});
        const auto width = sizeNow().width();
        EXPECT_GT(width, 100) << wrong;
        EXPECT_LE(width, room.width()) << wrong;
    }
}

} // namespace
