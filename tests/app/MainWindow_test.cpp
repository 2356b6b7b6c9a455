#include "app/MainWindow.h"
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
    for (const auto* name : {"stopTimeCheck", "batchCheck", "syncDtl", "batchSelected"})
        click(name);
    QTest::keyClicks(&time, QStringLiteral("0000\r"));
    EXPECT_EQ(controller.startTime(), 12u << 24);
    for (const auto* name : {"rate25", "playButton", "stopButton", "removeFromBatchButton"})
        click(name);
}

/// What Tab reaches, one after the other, from the start time on and back to it.
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
        QStringList stops{u"startTimeButton"_s,  u"stopTimeCheck"_s,  u"endTimeButton"_s,
                          u"addToBatchButton"_s, QLatin1String(rate), QLatin1String(type),
                          u"batchCheck"_s,       QLatin1String(mode), u"removeFromBatchButton"_s,
                          u"batchTable"_s,       u"stopButton"_s};
        auto& start = outlet("startTimeButton");
        EXPECT_EQ(tabStops(start, Qt::Key_Tab), stops);
        std::reverse(stops.begin() + 1, stops.end());
        EXPECT_EQ(tabStops(start, Qt::Key_Backtab), stops);
    };
    expectStops("rate30", "syncMtc", "batchAll");
    QTest::mouseClick(&outlet("rate25"), Qt::LeftButton);
    controller.handleSyncTypeMenuItems(sync::dtl);
    QTest::mouseClick(&outlet("batchSelected"), Qt::LeftButton);
    expectStops("rate25", "syncDtl", "batchSelected");

    outlet("rate25").setFocus();
    controller.handleFrameRateMenuItems(rate::fps24);
    expectStops("rate24", "syncDtl", "batchSelected");
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
