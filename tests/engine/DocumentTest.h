#pragma once

#include "document/list_file.h"
#include "support/ControllerRig.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

namespace vexa::test {

// The answers to a question.
inline constexpr int save = alertFirstButton;
inline constexpr int dontSave = alertSecondButton;
inline constexpr int cancel = alertThirdButton;

/// Panels that return scripted answers and record what they proposed.
struct ScriptedPanels final : FilePanels {
    std::optional<QString> runOpenPanel() override {
        if (whileShown)
            whileShown();
        return answer;
    }
    std::optional<QString> runSavePanel(const QString& name) override {
        proposed += name;
        return answer;
    }
    std::optional<QString> answer;
    std::function<void()> whileShown;
    QStringList proposed;
};

struct NotedDocuments final : RecentDocuments {
    void noteNewRecentDocument(const QString& path) override { noted += path; }
    QStringList noted;
};

/// A controller without a window, with scripted panels and alerts and a folder for files.
struct DocumentTest : testing::Test {
    DocumentTest() {
        midi.addDestination("Box", 1);
        Vexa_MIDI_Manager::setMidiSystem(&midi);
        describe(ui);
        auto outlets = ui.outlets(alerts);
        outlets.filePanels = &panels;
        outlets.recentDocuments = &recent;
        m_controller = std::make_unique<Vexa_RemoteAppDelegate>(outlets, runLoop);
        controller().applicationDidFinishLaunching();
    }
    ~DocumentTest() override { Vexa_MIDI_Manager::setMidiSystem(nullptr); }

    Vexa_RemoteAppDelegate& controller() { return *m_controller; }
    VexaBatchStripeData& list() { return controller().batchStripeData(); }
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    QString title() const { return ui.window.title(); }

    /// Writes a list of that many items to a file.
    QString fileWith(const char* name, int items) {
        BatchItems batch;
        for (int i = 0; i < items; ++i)
            batch.push_back(std::make_shared<BatchItem>(
                BatchItem{1, QStringLiteral("item"), 0, 1, 2, 0, static_cast<std::uint64_t>(i)}));
        EXPECT_TRUE(writeListFile(path(name), batch));
        return path(name);
    }
    void change() {
        controller().addItemToBatchList(
            1, QStringLiteral("new"),
            {tc("01:00:00:00"), tc("02:00:00:00"), rate::fps30, sync::mtc});
        controller().undoManager().endEvent();
    }

    QTemporaryDir folder;
    FakeMidiSystem midi;
    ManualRunLoop runLoop;
    ScriptedAlerts alerts;
    ScriptedPanels panels;
    NotedDocuments recent;
    PlainOutlets ui;

private:
    std::unique_ptr<Vexa_RemoteAppDelegate> m_controller;
};

} // namespace vexa::test
