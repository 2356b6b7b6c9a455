#include "engine/DocumentTest.h"

#include <QFile>
#include <gtest/gtest.h>

#include <vector>

using namespace vexa;
using namespace vexa::test;

namespace {

using DocumentCommands = DocumentTest;

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
