#pragma once

#include "app/MainWindow.h"
#include "controls/VexaBatchTableView.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "midi/none/NoMidiSystem.h"
#include "support/CleanDefaults.h"
#include "support/ManualRunLoop.h"

#include <QAbstractButton>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace vexa::test {

/// The window with its controller, an empty list and no MIDI.
struct MainWindowTest : testing::Test {
    MainWindowTest() {
        Vexa_MIDI_Manager::setMidiSystem(&midi);
        controller.applicationDidFinishLaunching();
        window.connectTo(controller, Vexa_MIDI_Manager::sharedMidiManager());
        window.show();
    }
    ~MainWindowTest() override { Vexa_MIDI_Manager::setMidiSystem(nullptr); }

    template<typename Widget = QAbstractButton>
    Widget& outlet(const char* name) {
        if (auto* const widget = window.findChild<Widget*>(QString::fromLatin1(name)))
            return *widget;
        throw std::out_of_range(std::string("the window has no ") + name);
    }
    void addItems(std::uint64_t count) {
        for (std::uint64_t reel = 1; reel <= count; ++reel)
            controller.addItemToBatchList(reel, QStringLiteral("item"), {0, 1, 2, 0});
    }

    const CleanDefaults defaults;
    NoMidiSystem midi;
    ManualRunLoop runLoop;
    MainWindow window;
    Vexa_RemoteAppDelegate controller{window.outlets(), runLoop};
    VexaBatchTableView& table = outlet<VexaBatchTableView>("batchTable");
};

} // namespace vexa::test
