#include "defaults/user_defaults.h"
#include "support/CleanDefaults.h"
#include "support/ControllerRig.h"

#include <gmock/gmock.h>

#include <cmath>
#include <span>

using namespace vexa;
using namespace vexa::test;
using testing::ElementsAre;

namespace {

// Outlets that record all calls in one log.

struct Log {
    std::vector<std::string> entries;
    void add(const std::string& name, const std::string& what) {
        entries.push_back(name + ": " + what);
    }
};

class LoggedMatrix final : public PlainRadioMatrix {
public:
    LoggedMatrix(Log& log, const char* name, std::uint64_t cells)
        : PlainRadioMatrix(cells), m_log(log), m_name(name) {}
    void selectCellWithTag(std::uint64_t tag) override {
        m_log.add(m_name, "select " + std::to_string(tag));
    }
    void switchSelectedCellOff() override { m_log.add(m_name, "off"); }
    void setMatrixEnabled(bool on) override { m_log.add(m_name, on ? "enable" : "disable"); }

private:
    Log& m_log;
    const char* m_name;
};

class LoggedButton final : public PlainButton {
public:
    LoggedButton(Log& log, const char* name) : m_log(log), m_name(name) {}
    void setToolTip(const QString&) override { m_log.add(m_name, "tool tip"); }

private:
    Log& m_log;
    const char* m_name;
};

class LoggedDisplay final : public PlainDisplay {
public:
    LoggedDisplay(Log& log, const char* name) : PlainDisplay(0), m_log(log), m_name(name) {}
    void setBcdValue(std::uint64_t value) override {
        PlainDisplay::setBcdValue(value);
        m_log.add(m_name, shown(*this));
    }
    void frameRateChanged() override {
        PlainDisplay::frameRateChanged();
        m_log.add(m_name, shown(*this));
    }

private:
    Log& m_log;
    const char* m_name;
};

class LoggedTable final : public PlainBatchTable {
public:
    explicit LoggedTable(Log& log) : m_log(log) {}
    void setColumnIdentifiers(const QStringList& columns) override {
        m_log.add("table", std::to_string(columns.size()) + " columns");
    }
    void installHeader() override { m_log.add("table", "header"); }
    void setIntercellSpacing(double width, double height) override {
        m_log.add("table", "spacing " + std::to_string(std::lround(width)) + " by " +
                               std::to_string(std::lround(height)));
    }

private:
    Log& m_log;
};

class LoggedTitle final : public WindowTitle {
public:
    explicit LoggedTitle(Log& log) : m_log(log) {}
    void setTitle(const QString& title) override { m_log.add("title", title.toStdString()); }

private:
    Log& m_log;
};

class LoggedLabel final : public TextField {
public:
    explicit LoggedLabel(Log& log) : m_log(log) {}
    void setStringValue(const QString& text) override { m_log.add("item", text.toStdString()); }

private:
    Log& m_log;
};

struct StartUpOrder : testing::Test {
    StartUpOrder() {
        destination = midi.addDestination("Timecode Box", 77);
        midi.whenSent = [this](const auto& sent) {
            log.add(sent.destination == destination ? "box" : "nowhere", sent.bytes);
        };
        Vexa_MIDI_Manager::setMidiSystem(&midi);
    }
    ~StartUpOrder() override { Vexa_MIDI_Manager::setMidiSystem(nullptr); }

    std::vector<std::string> startUp() {
        auto outlets = plain.outlets(alerts);
        outlets.window = &title;
        outlets.transportMatrix = &transport;
        outlets.frameRateMatrix = &rates;
        outlets.syncTypeMatrix = &types;
        outlets.batchRadios = &batchRadios;
        outlets.currentTimeButton = &current;
        outlets.startTimeButton = &start;
        outlets.endTimeButton = &end;
        outlets.stopTimeCheck = &stopTimeCheck;
        outlets.addToBatchButton = &addButton;
        outlets.removeFromBatchButton = &removeButton;
        outlets.batchTable = &table;
        outlets.currentStripeItemLabel = &label;
        Vexa_RemoteAppDelegate controller(outlets, runLoop);
        QObject::connect(&controller, &Vexa_RemoteAppDelegate::vexaratechg, &controller,
                         [&] { log.add("rate", std::to_string(controller.frameRate())); });
        controller.applicationDidFinishLaunching();
        return log.entries;
    }

    CleanDefaults clean;
    Log log;
    FakeMidiSystem midi;
    MidiObjectRef destination = 0;
    ManualRunLoop runLoop;
    ScriptedAlerts alerts;
    PlainOutlets plain;
    LoggedTitle title{log};
    LoggedMatrix transport{log, "transport", 3};
    LoggedMatrix rates{log, "rates", 4};
    LoggedMatrix types{log, "types", 3};
    LoggedMatrix batchRadios{log, "batch radios", 2};
    LoggedDisplay current{log, "current"};
    LoggedDisplay start{log, "start"};
    LoggedDisplay end{log, "end"};
    LoggedButton stopTimeCheck{log, "stop time"};
    LoggedButton addButton{log, "add"};
    LoggedButton removeButton{log, "remove"};
    LoggedTable table{log};
    LoggedLabel label{log};
};

TEST_F(StartUpOrder, IsFixed) {
    defaults::write({.defaultFrameRate = 3, .defaultSyncType = 1, .midiDestination = 77});
    EXPECT_THAT(startUp(),
                ElementsAre("item: ", "box: " + stopFrame, "box: " + stopFrame,
                            // The built-in rate
                            "current: 00:00:00:00", "start: 00:00:00:00", "end: 00:00:00:00",
                            "rate: 2",
                            // The first times
                            "start: 01:00:00:00", "end: 00:00:00:00",
                            "title: Vexa Remote: Untitled Batch List", "table: 6 columns",
                            // The stored defaults
                            "current: 00:00:00:00", "start: 01:00:00:00", "end: 00:00:00:00",
                            "rate: 3", "types: select 1", "rates: enable", "rates: select 3",
                            "table: header", "table: spacing 5 by 2", "add: tool tip",
                            "remove: tool tip", "stop time: tool tip"));
}

TEST_F(StartUpOrder, ARememberedDestinationThatIsGoneCostsAMessageToNone) {
    defaults::write({.midiDestination = 5});
    const auto entries = startUp();
    EXPECT_THAT(std::span(entries).first(3),
                ElementsAre("item: ", "nowhere: " + stopFrame, "box: " + stopFrame));
}

TEST_F(StartUpOrder, WithFskNoRateIsSelected) {
    defaults::write({.defaultSyncType = 2});
    const auto entries = startUp();
    EXPECT_THAT(std::span(entries).subspan(13, 4),
                ElementsAre("rate: 2", "types: select 2", "rates: off", "rates: disable"));
}

} // namespace
