#include "engine/DocumentTest.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::IsEmpty;

namespace {

using DocumentCommands = DocumentTest;

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

} // namespace
