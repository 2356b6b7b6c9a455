#include "app/BigClock.h"
#include "app/MainWindow.h"
#include "controls/ClockDisplay.h"
#include "controls/KelGrayTextMatrix.h"
#include "controls/VexaBatchTableView.h"
#include "defaults/user_defaults.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/none/NoMidiSystem.h"
#include "support/CleanDefaults.h"
#include "support/ManualRunLoop.h"
#include "timecode/sync_type.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>

using namespace vexa;
using namespace Qt::StringLiterals;
using namespace vexa::test;

namespace {

struct Window : testing::Test {
    Window() {
        Vexa_MIDI_Manager::setMidiSystem(&midi);
        controller.applicationDidFinishLaunching();
        window.connectTo(controller, Vexa_MIDI_Manager::sharedMidiManager());
        window.show();
    }
    ~Window() override { Vexa_MIDI_Manager::setMidiSystem(nullptr); }

    template<typename Widget = QAbstractButton>
    Widget& outlet(const char* name) {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }
    void addItems(std::uint64_t count) {
        for (std::uint64_t reel = 1; reel <= count; ++reel)
            controller.addItemToBatchList(reel, u"item"_s, {0, 1, 2, 0});
    }

    const CleanDefaults defaults;
    NoMidiSystem midi;
    ManualRunLoop runLoop;
    MainWindow window;
    Vexa_RemoteAppDelegate controller{window.outlets(), runLoop};
    VexaBatchTableView& table = outlet<VexaBatchTableView>("batchTable");
};

TEST_F(Window, BatchControlsRestWhileTheListIsEmpty) {
    EXPECT_FALSE(outlet("batchCheck").isEnabled());
    EXPECT_FALSE(outlet("batchAll").isEnabled());
    EXPECT_TRUE(outlet("batchAll").isChecked());
    EXPECT_FALSE(outlet("addToBatchButton").isVisible());
    EXPECT_FALSE(outlet("removeFromBatchButton").isVisible());
}

TEST_F(Window, TheAddButtonComesWithTheStopTimeAndMovesNothing) {
    const auto& stopTime = outlet("endTimeButton");
    const auto before = stopTime.geometry();
    outlet("stopTimeCheck").click();
    QCoreApplication::processEvents();
    EXPECT_TRUE(outlet("addToBatchButton").isVisible());
    EXPECT_EQ(stopTime.geometry(), before);
}

TEST_F(Window, TheRemoveButtonAndTheDeleteKeyDeleteTheSelectedRows) {
    addItems(3);
    table.selectRow(0);
    EXPECT_TRUE(outlet("removeFromBatchButton").isVisible());
    outlet("removeFromBatchButton").click();
    EXPECT_EQ(table.model()->rowCount(), 2);
    EXPECT_FALSE(outlet("removeFromBatchButton").isVisible());
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_EQ(table.model()->rowCount(), 1);
    controller.undo();
    EXPECT_EQ(table.model()->rowCount(), 2);
    EXPECT_FALSE(table.hasSelectedRows());
}

TEST_F(Window, BatchControlsRestAgainWhenTheLastRowIsDeleted) {
    addItems(2);
    table.selectAll();
    outlet("batchSelected").click();
    ASSERT_TRUE(controller.useBatch());
    QTest::keyClick(&table, Qt::Key_Delete);
    EXPECT_FALSE(outlet("batchAll").isEnabled());
    EXPECT_FALSE(outlet("batchSelected").isEnabled());
    EXPECT_FALSE(outlet("batchCheck").isEnabled());
    outlet("batchSelected").click();
    EXPECT_FALSE(controller.useBatch());
    controller.undo();
    EXPECT_TRUE(outlet("batchAll").isEnabled());
    EXPECT_FALSE(outlet("batchSelected").isEnabled());
}

TEST_F(Window, AChangeOfTheListLeavesTheOtherRowsSelected) {
    addItems(3);
    table.selectRow(2);
    outlet("batchSelected").click();
    controller.undoManager().endEvent();
    controller.addItemToBatchList(0, u"first"_s, {0, 1, 2, 0});
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{3});
    controller.undo();
    EXPECT_EQ(table.selectedRowIndexes(), RowIndexes{2});
    EXPECT_TRUE(outlet("batchSelected").isChecked());
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
}

TEST_F(Window, SelectedCanBeChosenWhileRowsAre) {
    addItems(2);
    EXPECT_TRUE(outlet("batchAll").isEnabled());
    EXPECT_FALSE(outlet("batchSelected").isEnabled());
    table.selectRow(1);
    EXPECT_TRUE(outlet("batchSelected").isEnabled());
    outlet("batchSelected").click();
    EXPECT_EQ(controller.batchMode(), batchModeSelected);
    EXPECT_TRUE(outlet("batchCheck").isChecked());
    table.clearSelection();
    EXPECT_TRUE(outlet("batchAll").isChecked());
    outlet("batchCheck").click();
    EXPECT_FALSE(controller.useBatch());
}

TEST_F(Window, F3AndF4BeginTheTypingOfATime) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F4);
    EXPECT_TRUE(outlet("endTimeButton").hasFocus());
    EXPECT_TRUE(outlet("endTimeButton").isChecked());
    EXPECT_TRUE(controller.stopTimeSet()) << "as by a press on it";
    QTest::keyClick(&window, Qt::Key_F3);
    EXPECT_TRUE(outlet("startTimeButton").hasFocus());
    EXPECT_FALSE(outlet("endTimeButton").isChecked());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3000000"));
    QTest::keyClick(&window, Qt::Key_F3);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(controller.startTime(), 3u << 24) << "F3 again disturbs nothing";
    QTest::keyClick(&window, Qt::Key_F4);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5959"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClick(&window, Qt::Key_F4);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5100000"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(controller.stopTime(), 0x050a0000u) << "typed afresh after a time that was refused";
}

TEST_F(Window, OpensWithTheStartTimeReadyForTyping) {
    EXPECT_EQ(window.focusWidget(), &outlet("startTimeButton"));
}

TEST_F(Window, AClickLeavesTheKeyboardWithTheTimeThatIsTyped) {
    addItems(2);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F3);
    auto& time = outlet("startTimeButton");
    QTest::keyClicks(&time, QStringLiteral("1200"));
    table.selectRow(0);
    const auto click = [&](const char* name) {
        QTest::mouseClick(&outlet(name), Qt::LeftButton);
        EXPECT_EQ(QApplication::focusWidget(), &time) << name;
    };
    for (const auto* name : {"stopTimeCheck", "batchCheck", "DTL", "batchSelected"})
        click(name);
    QTest::keyClicks(&time, QStringLiteral("0000\r"));
    EXPECT_EQ(controller.startTime(), 12u << 24);
    for (const auto* name : {"25 fps", "playButton", "stopButton", "removeFromBatchButton"})
        click(name);
}

/// The controls that the key reaches in turn, from the start until the focus is back there.
QStringList tabStops(QWidget& start, Qt::Key key) {
    start.setFocus();
    QStringList names;
    do {
        names += QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), key);
    } while (QApplication::focusWidget() != &start && names.size() < 40);
    return names;
}

TEST_F(Window, TabFollowsTheEyeAndReachesWhatIsOn) {
    addItems(2);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    outlet("stopTimeCheck").click();
    table.selectRow(0);
    const auto expectStops = [&](const char* rate, const char* type, const char* mode) {
        QStringList stops{u"startTimeButton"_s,  u"stopTimeCheck"_s,     u"endTimeButton"_s,
                          u"addToBatchButton"_s, QLatin1String(rate),    QLatin1String(type),
                          u"batchCheck"_s,       QLatin1String(mode),    u"removeFromBatchButton"_s,
                          u"batchTable"_s,       u"destinationButton"_s, u"stopButton"_s};
        auto& start = outlet("startTimeButton");
        EXPECT_EQ(tabStops(start, Qt::Key_Tab), stops);
        std::reverse(stops.begin() + 1, stops.end());
        EXPECT_EQ(tabStops(start, Qt::Key_Backtab), stops);
    };
    expectStops("30 fps", "MTC", "batchAll");
    QTest::mouseClick(&outlet("25 fps"), Qt::LeftButton);
    controller.handleSyncTypeMenuItems(sync::dtl);
    QTest::mouseClick(&outlet("batchSelected"), Qt::LeftButton);
    expectStops("25 fps", "DTL", "batchSelected");

    outlet("25 fps").setFocus();
    controller.handleFrameRateMenuItems(rate::fps24);
    expectStops("24 fps", "DTL", "batchSelected");
}

TEST_F(Window, ArrowKeysLookThroughTheTransportAndPressNothing) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    outlet("stopButton").setFocus();
    for (const auto* name : {"playButton", "pauseButton", "pauseButton"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        EXPECT_EQ(QApplication::focusWidget(), &outlet(name));
    }
    EXPECT_EQ(controller.transportState(), transport::stopped);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &outlet("startTimeButton"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), &outlet("stopButton")) << "the one that is on";
}

TEST_F(Window, HasARadioCellForEachRateAndSyncType) {
    for (const auto& rate : frameRates) {
        const auto& cell = outlet(std::string(rate.name).c_str());
        EXPECT_EQ(cell.accessibleName(), cell.text());
        EXPECT_EQ(outlet<KelGrayTextMatrix>("frameRateMatrix").cellWithTag(rate.code), &cell);
    }
    for (std::uint64_t code = 0; code < sync::count; ++code)
        EXPECT_EQ(
            outlet<KelGrayTextMatrix>("syncTypeMatrix").cellWithTag(code)->text().toStdString(),
            syncTypeName(code));
}

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

TEST_F(Window, SaysHowLongTheStripeLasts) {
    const auto& lasts = outlet<QLabel>("lastsLabel");
    EXPECT_EQ(lasts.text(), QString());
    outlet("stopTimeCheck").click();
    QCoreApplication::processEvents();
    EXPECT_EQ(lasts.text(), u"lasts 0:05"_s);
}

TEST_F(Window, TellsOfATimeThatIsTypedButNotTaken) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto& status = outlet<QLabel>("statusLabel");
    const auto said = [&] {
        QCoreApplication::processEvents();
        return status.accessibleDescription();
    };
    EXPECT_EQ(said(), u"no items"_s);
    QTest::keyClick(&window, Qt::Key_F4);
    EXPECT_EQ(said(), u"no items"_s) << "nothing is typed yet";
    QTest::keyClicks(QApplication::focusWidget(), u"1000059"_s);
    EXPECT_EQ(said(), u"Stop time not taken: press Return"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(said(), u"no frame 59 at 30 fps"_s);
    QTest::keyClick(&window, Qt::Key_F4);
    QTest::keyClicks(QApplication::focusWidget(), u"1100000\r"_s);
    EXPECT_EQ(said(), u"no items"_s);
}

/// The menu item with this title.
QAction* item(const MainWindow& window, const QString& menu, const QString& title) {
    for (const auto* top : window.menuBar()->actions())
        if (top->text() == menu)
            for (auto* action : top->menu()->actions())
                if (action->text() == title)
                    return action;
    return nullptr;
}

TEST_F(Window, TheStatusLineComesAndGoesAndIsRemembered) {
    auto& status = outlet<QWidget>("statusLine");
    auto* const show = item(window, u"&View"_s, u"&Status Line"_s);
    ASSERT_TRUE(status.isVisible() && show->isChecked());
    show->trigger();
    EXPECT_FALSE(status.isVisible());
    EXPECT_EQ(defaults::read().showsStatusLine, false);
    const MainWindow next;
    EXPECT_TRUE(next.findChild<QWidget*>(u"statusLine"_s)->isHidden());
    show->trigger();
    EXPECT_TRUE(status.isVisible());
}

TEST_F(Window, TheBigClockFillsTheScreenAndFollowsTheClock) {
    auto* const show = item(window, u"&View"_s, u"&Big Clock"_s);
    show->trigger();
    auto* const bigClock = window.findChild<BigClock*>();
    ASSERT_NE(bigClock, nullptr);
    EXPECT_TRUE(bigClock->isVisible() && bigClock->isWindow() && bigClock->isFullScreen());
    EXPECT_TRUE(show->isChecked());
    EXPECT_EQ(bigClock->size(), window.screen()->size());
    auto& clock = bigClock->display().clock();
    EXPECT_GT(clock.height(), bigClock->height() / 2);
    controller.handleStripeMenuItems(transport::playing);
    runLoop.fireTimerOf(RunLoop::Seconds(controller.frameInterval()));
    EXPECT_EQ(clock.reading(), u"01:00:00:01"_s);
    for (const auto key : {Qt::Key_Escape, Qt::Key_F11}) {
        QTest::keyClick(bigClock, key);
        EXPECT_FALSE(bigClock->isVisible());
        EXPECT_FALSE(show->isChecked());
        show->trigger();
        EXPECT_TRUE(bigClock->isVisible());
    }
    bigClock->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(bigClock));
    QTest::keyClick(bigClock, Qt::Key_F5);
    EXPECT_EQ(controller.transportState(), transport::stopped);
}

TEST_F(Window, FitsASmallScreen) {
    const QSize screen(1024 * 2 / 3, 600 * 2 / 3); // 1024 x 600 at 150 %
    const QSize frame(0, 30);
    const auto least = window.minimumSizeHint() + frame;
    EXPECT_EQ(least.boundedTo(screen), least) << least.width() << " x " << least.height();
}

TEST_F(Window, HasButtonsWhoseGrayCaptionsReadAlsoWhenPressed) {
    outlet("stopTimeCheck").click();
    for (const bool down : {false, true}) {
        auto& add = outlet("addToBatchButton");
        add.setDown(down);
        const auto image = add.grab().toImage();
        const QColor ground = image.pixelColor(5, image.height() / 2);
        EXPECT_EQ(ground, QColor(Qt::white)) << "at 4.67:1, and 4.5:1 on nothing below 98.3 %";
        add.setDown(false);
    }
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

struct Name {
    const char* object;
    const char* accessible;
};

class BatchControlName : public Window, public testing::WithParamInterface<Name> {};

TEST_P(BatchControlName, IsTheCaptionForAssistiveTechnology) {
    EXPECT_EQ(outlet<QWidget>(GetParam().object).accessibleName(),
              QString::fromLatin1(GetParam().accessible));
}

INSTANTIATE_TEST_SUITE_P(Table, BatchControlName,
                         testing::Values(Name{"addToBatchButton", "Add to batch list"},
                                         Name{"removeFromBatchButton", "Remove selected items"},
                                         Name{"batchCheck", "Batch striping"},
                                         Name{"batchAll", "All"}, Name{"batchSelected", "Selected"},
                                         Name{"batchTable", "Batch stripe list"}));

} // namespace
