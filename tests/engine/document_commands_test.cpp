#include "document/list_file.h"
#include "engine/menu_validation.h"
#include "support/ControllerRig.h"
#include "support/PeakMemory.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::IsEmpty;

namespace {

constexpr int save = alertFirstButton;
constexpr int dontSave = alertSecondButton;
constexpr int cancel = alertThirdButton;

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

struct DocumentCommands : testing::Test {
    DocumentCommands() {
        midi.addDestination("Box", 1);
        Vexa_MIDI_Manager::setMidiSystem(&midi);
        describe(ui);
        auto outlets = ui.outlets(alerts);
        outlets.filePanels = &panels;
        outlets.recentDocuments = &recent;
        m_controller = std::make_unique<Vexa_RemoteAppDelegate>(outlets, runLoop);
        controller().applicationDidFinishLaunching();
    }
    ~DocumentCommands() override { Vexa_MIDI_Manager::setMidiSystem(nullptr); }

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

TEST_F(DocumentCommands, OpenHoldsOneListAtATime) {
    if (!isMemoryOurs)
        GTEST_SKIP() << "a sanitizer takes memory of its own";
    const auto title = QString(1000, u'x');
    BatchItems batch;
    for (std::uint64_t id = 0; id < 20'000; ++id)
        batch.push_back(
            std::make_shared<BatchItem>(BatchItem{1, title + QString::number(id), 0, 1, 2, 0, id}));
    ASSERT_TRUE(writeListFile(path("long"), batch));
    batch.clear();
    const auto peakOf = [&](int times) {
        return peakMemory([&] {
            for (int i = 0; i < times; ++i)
                controller().openListWithURL(path("long"));
        });
    };
    EXPECT_LT(peakOf(2), peakOf(1) + 20) << "MiB; the list takes 40";
}

struct Title {
    const char* file;
    const char* title;
};

class ListTitle : public DocumentCommands, public testing::WithParamInterface<Title> {};

TEST_P(ListTitle, IsTheFileNameUpToItsFirstFullStop) {
    controller().openListWithURL(fileWith(GetParam().file, 1));
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: ") + QString::fromUtf8(GetParam().title));
}

INSTANTIATE_TEST_SUITE_P(Names, ListTitle,
                         testing::Values(Title{"Reels 1-4.vexaB", "Reels 1-4"},
                                         Title{"Show.final.vexaB", "Show"}, Title{"List", "List"},
                                         Title{".vexaB", ""},
                                         Title{"100% #1 %1.vexaB", "100% #1 %1"},
                                         Title{"Пленка №3.vexaB", "Пленка №3"}));

TEST_F(DocumentCommands, NewClearsAnUnchangedListWithoutAQuestion) {
    controller().openListWithURL(fileWith("List.vexaB", 2));
    controller().newDocument();
    EXPECT_THAT(alerts.shown, IsEmpty());
    EXPECT_EQ(list().numItems(), 0u);
    EXPECT_FALSE(controller().previouslySaved());
    EXPECT_TRUE(controller().url().isNull());
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: Untitled Batch List"));
}

TEST_F(DocumentCommands, TheBatchControlsFollowANewAndAnOpenedList) {
    ASSERT_FALSE(ui.batchCheck.isEnabled());
    controller().openListWithURL(fileWith("List.vexaB", 2));
    EXPECT_TRUE(ui.batchCheck.isEnabled());
    ui.batchTable.selectRows({0, 1});
    controller().tableViewSelectionDidChange();
    controller().handleBatchListMenuItems(batch_menu::useBatch);
    controller().handleBatchListMenuItems(batch_menu::selected);
    ASSERT_TRUE(controller().useBatch());
    ASSERT_FALSE(ui.removeFromBatchButton.isHidden());

    controller().newDocument();
    EXPECT_FALSE(controller().useBatch());
    EXPECT_FALSE(ui.batchCheck.state());
    EXPECT_FALSE(ui.batchCheck.isEnabled());
    EXPECT_EQ(controller().batchMode(), batchModeAll);
    EXPECT_EQ(ui.batchRadios.selectedTag(), batchModeAll);
    EXPECT_TRUE(ui.removeFromBatchButton.isHidden());
}

TEST_F(DocumentCommands, NewOnAChangedNeverSavedListAsks) {
    change();
    alerts.answers = {cancel};
    controller().newDocument();
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message,
              QStringLiteral("Do you want to save the current batch list before proceeding?"));
    EXPECT_EQ(alerts.shown[0].information, QStringLiteral("It has never been saved."));
    EXPECT_EQ(alerts.shown[0].buttons,
              (std::vector{QStringLiteral("Save"), QStringLiteral("Don't Save"),
                           QStringLiteral("Cancel")}));
    EXPECT_EQ(list().numItems(), 1u);
    EXPECT_TRUE(controller().dirty());
}

TEST_F(DocumentCommands, TheQuestionForASavedListNamesIt) {
    controller().openListWithURL(fileWith("Show.vexaB", 1));
    change();
    alerts.answers = {cancel};
    controller().newDocument();
    EXPECT_EQ(alerts.shown.at(0).message,
              QStringLiteral("Do you want to save Show before proceeding?"));
    EXPECT_EQ(alerts.shown.at(0).information,
              QStringLiteral("It has changed since it was last saved."));
}

TEST_F(DocumentCommands, DontSaveDiscardsTheChanges) {
    const auto file = fileWith("Show.vexaB", 1);
    controller().openListWithURL(file);
    change();
    alerts.answers = {dontSave};
    controller().newDocument();
    EXPECT_EQ(list().numItems(), 0u);
    EXPECT_EQ(readListFile(file).size(), 1u);
}

TEST_F(DocumentCommands, SaveThenGoesAheadEvenWhenTheSavePanelIsCancelled) {
    change();
    alerts.answers = {save};
    controller().newDocument();
    EXPECT_EQ(panels.proposed, QStringList{QStringLiteral("Untitled Batch List.vexaB")});
    EXPECT_EQ(list().numItems(), 0u);
    EXPECT_FALSE(controller().dirty());
}

TEST_F(DocumentCommands, AnUnansweredQuestionLosesNothing) {
    change();
    alerts.answers = {alertUnanswered};
    controller().newDocument();
    EXPECT_EQ(list().numItems(), 1u);
    EXPECT_TRUE(controller().dirty());
}

TEST_F(DocumentCommands, OpenLoadsTwiceAndNotesTheFileTwice) {
    panels.answer = fileWith("List.vexaB", 3);
    controller().openDocument();
    EXPECT_THAT(alerts.shown, IsEmpty());
    EXPECT_EQ(list().numItems(), 3u);
    EXPECT_EQ(recent.noted, QStringList({*panels.answer, *panels.answer}));
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: List"));
    EXPECT_FALSE(controller().dirty());
    EXPECT_TRUE(controller().previouslySaved());
    EXPECT_EQ(controller().url(), *panels.answer);
}

TEST_F(DocumentCommands, ACancelledOpenPanelChangesNothing) {
    controller().openListWithURL(fileWith("List.vexaB", 3));
    controller().openDocument();
    EXPECT_EQ(list().numItems(), 3u);
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: List"));
}

TEST_F(DocumentCommands, AnUnreadableFileIsAnEmptyListThatCountsAsOpened) {
    change();
    alerts.answers = {dontSave};
    controller().openFile(path("missing.vexaB"));
    EXPECT_EQ(list().numItems(), 0u);
    EXPECT_TRUE(controller().previouslySaved());
    EXPECT_FALSE(controller().dirty());
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: missing"));
    EXPECT_EQ(alerts.shown.size(), 1u) << "no message but the question";
}

TEST_F(DocumentCommands, AFileHandedOverWhileStripingAsksButDoesNotOpen) {
    change();
    controller().setTransportState(transport::playing);
    alerts.answers = {dontSave};
    EXPECT_TRUE(controller().openFile(fileWith("List.vexaB", 3)));
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(list().numItems(), 1u);
    EXPECT_TRUE(controller().dirty());
}

TEST_F(DocumentCommands, ARunThatBeginsWhileAQuestionIsUpKeepsItsList) {
    change();
    panels.answer = fileWith("List.vexaB", 3);
    alerts.answers = {dontSave, dontSave};
    alerts.whileShown = [this] { controller().setTransportState(transport::playing); };
    for (const auto command :
         {&Vexa_RemoteAppDelegate::newDocument, &Vexa_RemoteAppDelegate::openDocument}) {
        (controller().*command)();
        EXPECT_EQ(list().numItems(), 1u);
        EXPECT_TRUE(controller().dirty());
        controller().setTransportState(transport::stopped);
    }
    EXPECT_EQ(alerts.shown.size(), 2u);
}

TEST_F(DocumentCommands, ARunThatBeginsWhileTheOpenPanelIsUpKeepsItsList) {
    controller().openListWithURL(fileWith("Old.vexaB", 1));
    panels.answer = fileWith("New.vexaB", 3);
    panels.whileShown = [this] { controller().setTransportState(transport::playing); };
    controller().openDocument();
    EXPECT_EQ(list().numItems(), 1u);
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: Old"));
}

TEST_F(DocumentCommands, SaveOfANeverSavedListAsksForAName) {
    change();
    controller().saveDocument();
    EXPECT_EQ(panels.proposed, QStringList{QStringLiteral("Untitled Batch List.vexaB")});
    EXPECT_TRUE(controller().dirty()) << "cancelled";
    panels.answer = path("New.vexaB");
    controller().saveDocument();
    EXPECT_FALSE(controller().dirty());
    EXPECT_EQ(readListFile(path("New.vexaB")).size(), 1u);
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: New"));
}

TEST_F(DocumentCommands, SaveAsRetitlesAndLaterSavesGoThere) {
    controller().openListWithURL(fileWith("Old.vexaB", 1));
    panels.answer = path("New.vexaB");
    controller().saveDocumentAs();
    EXPECT_EQ(panels.proposed, QStringList{QStringLiteral("Untitled Batch List.vexaB")});
    EXPECT_EQ(title(), QStringLiteral("Vexa Remote: New"));
    change();
    controller().saveDocument();
    EXPECT_EQ(readListFile(path("New.vexaB")).size(), 2u);
    EXPECT_EQ(readListFile(path("Old.vexaB")).size(), 1u);
    EXPECT_EQ(recent.noted.size(), 1) << "saving notes nothing";
}

TEST_F(DocumentCommands, ATitleThatIsBeingTypedIsSaved) {
    change();
    panels.answer = path("New.vexaB");
    QString typed;
    ui.batchTable.onCommit = [&] { list().setObjectValue(typed, item_key::title, 0); };
    const auto savedTitle = [&] { return readListFile(*panels.answer).at(0)->title; };
    typed = QStringLiteral("at Save As");
    controller().saveDocumentAs();
    EXPECT_EQ(savedTitle(), typed);
    typed = QStringLiteral("at Save");
    controller().saveDocument();
    EXPECT_EQ(savedTitle(), typed);

    alerts.answers = {save, save};
    for (const auto closeTheList :
         {&Vexa_RemoteAppDelegate::windowShouldClose, &Vexa_RemoteAppDelegate::saveFirst}) {
        change();
        typed = QStringLiteral("before the question");
        alerts.whileShown = [&] {
            EXPECT_EQ(list().batchList()[0]->title, typed);
            typed = QStringLiteral("during the question");
        };
        EXPECT_TRUE((controller().*closeTheList)());
        EXPECT_EQ(savedTitle(), typed);
    }
}

TEST_F(DocumentCommands, AFailedWriteCountsAsSaved) {
    controller().openListWithURL(path("no such folder/List.vexaB"));
    change();
    controller().saveDocument();
    EXPECT_FALSE(controller().dirty());
    EXPECT_THAT(alerts.shown, IsEmpty());
}

TEST_F(DocumentCommands, RevertAsksAndReadsTheFileAgain) {
    controller().openListWithURL(fileWith("Show.vexaB", 1));
    change();
    alerts.answers = {alertSecondButton};
    controller().revertDocumentToSaved();
    EXPECT_EQ(list().numItems(), 2u);
    EXPECT_EQ(alerts.shown.at(0).message,
              QStringLiteral("Do you want to revert to the saved version of Show?"));
    EXPECT_EQ(alerts.shown.at(0).information,
              QStringLiteral("It has changed since it was last saved."));
    EXPECT_EQ(alerts.shown.at(0).buttons,
              (std::vector{QStringLiteral("Revert"), QStringLiteral("Cancel")}));
    alerts.answers = {alertFirstButton};
    controller().revertDocumentToSaved();
    EXPECT_EQ(list().numItems(), 1u);
    EXPECT_FALSE(controller().dirty());
}

TEST_F(DocumentCommands, TheRevertQuestionOfANeverSavedListHasNoFullStop) {
    change();
    alerts.answers = {alertSecondButton};
    EXPECT_FALSE(controller().askRevert());
    EXPECT_EQ(
        alerts.shown.at(0).message,
        QStringLiteral("Do you want to revert to the saved version of the current batch list?"));
    EXPECT_EQ(alerts.shown.at(0).information, QStringLiteral("It has never been saved"));
}

TEST_F(DocumentCommands, UndoOutlivesNewAndOpen) {
    change();
    alerts.answers = {dontSave};
    controller().newDocument();
    EXPECT_TRUE(controller().undoManager().canUndo());
    change();
    EXPECT_EQ(list().batchList().back()->id, 1u) << "ids count on";
}

TEST_F(DocumentCommands, WhileOneQuestionIsUpNoOtherIsAsked) {
    controller().openListWithURL(fileWith("Show.vexaB", 1));
    change();
    alerts.whileShown = [this] {
        EXPECT_FALSE(controller().windowShouldClose());
        EXPECT_FALSE(controller().saveFirst());
        EXPECT_FALSE(controller().askRevert());
    };
    alerts.answers = {cancel, cancel, alertSecondButton};
    EXPECT_FALSE(controller().windowShouldClose());
    EXPECT_FALSE(controller().saveFirst());
    EXPECT_FALSE(controller().askRevert());
    EXPECT_EQ(alerts.shown.size(), 3u);
    EXPECT_EQ(list().numItems(), 2u);
}

struct Closing {
    int answer;
    bool panelAnswers;
    bool closes;
};

class WindowShouldClose : public DocumentCommands, public testing::WithParamInterface<Closing> {};

TEST_P(WindowShouldClose, GoesByTheAnswerAndTheSavePanel) {
    EXPECT_TRUE(controller().windowShouldClose());
    change();
    alerts.answers = {GetParam().answer};
    if (GetParam().panelAnswers)
        panels.answer = path("New.vexaB");
    EXPECT_EQ(controller().windowShouldClose(), GetParam().closes);
    EXPECT_EQ(QFile::exists(path("New.vexaB")), GetParam().panelAnswers);
}

INSTANTIATE_TEST_SUITE_P(Answers, WindowShouldClose,
                         testing::Values(Closing{save, true, true}, Closing{save, false, false},
                                         Closing{dontSave, false, true},
                                         Closing{cancel, false, false},
                                         Closing{alertUnanswered, false, false}));

} // namespace
