#pragma once

#include "engine/Vexa_RemoteAppDelegate.h"
#include "midi/Vexa_MIDI_Manager.h"
#include "support/FakeMidiSystem.h"
#include "support/ManualRunLoop.h"
#include "support/PlainOutlets.h"
#include "support/ScriptedAlerts.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <string>

namespace vexa::test {

/// The packed timecode of "hh:mm:ss:ff".
inline std::uint64_t tc(const char* text) { return pack(timecodeFromText(text).value()); }

/// The text on a display.
inline std::string shown(const PlainDisplay& display) { return timecodeText(display.bcdValue()); }

/// The generator's frames as text.
inline const std::string stopFrame = "F0 7D 42 00 00 00 00 00 F7";
inline std::string frame(const char* timeBytes, const char* code) {
    return std::string("F0 7D 42 ") + timeBytes + ' ' + code + " F7";
}

/// Gives the controls their initial states, as the window's .ui file does.
inline void describe(PlainOutlets& ui) {
    ui.addToBatchButton.setHidden(true);
    ui.removeFromBatchButton.setHidden(true);
    ui.batchCheck.setEnabled(false);
    ui.batchRadios.setMatrixEnabled(false);
}

/// A controller without a window, with a MIDI destination that records its messages and a clock
/// that advances by hand. Start-up is over, and its messages are discarded.
struct ControllerRig {
    /// startDisplay: replaces the plain display, if a test brings its own.
    explicit ControllerRig(TimecodeEntry* startDisplay = nullptr)
        : controller(outlets(startDisplay), runLoop) {
        destination = midi.addDestination("Timecode Box", 77);
        describe(ui);
        Vexa_MIDI_Manager::setMidiSystem(&midi);
        controller.applicationDidFinishLaunching();
        midi.takeSent();
    }
    ~ControllerRig() { Vexa_MIDI_Manager::setMidiSystem(nullptr); }
    ControllerRig(const ControllerRig&) = delete;
    ControllerRig& operator=(const ControllerRig&) = delete;

    /// Presses a transport button.
    void press(std::uint64_t state) {
        ui.transportMatrix.selectCellWithTag(state);
        controller.handleTransportButtons();
    }

    /// Commits the time entered in a display.
    void commit(const PlainDisplay& display) {
        controller.timeChanged(display.tag(), display.bcdValue());
    }

    /// Lets the clock tick that many times.
    void tick(int times = 1) {
        while (times-- > 0)
            runLoop.fireTimerOf(RunLoop::Seconds(controller.frameInterval()));
    }

    /// Enters the settings of a single stripe, as the operator's edits would.
    void setStripe(const char* start, const char* stop, std::uint64_t rate,
                   std::uint64_t type = sync::mtc) {
        controller.handleFrameRateMenuItems(rate);
        controller.handleSyncTypeMenuItems(type);
        controller.setStartTime(tc(start), stop ? tc(stop) : 0, {});
        controller.setStopTime(stop ? tc(stop) : 0, stop != nullptr, {});
    }

    FakeMidiSystem midi;
    MidiObjectRef destination = 0;
    ManualRunLoop runLoop;
    ScriptedAlerts alerts;
    PlainOutlets ui;
    Vexa_RemoteAppDelegate controller;

private:
    Outlets outlets(TimecodeEntry* startDisplay) {
        auto all = ui.outlets(alerts);
        if (startDisplay)
            all.startTimeButton = startDisplay;
        return all;
    }
};

} // namespace vexa::test
