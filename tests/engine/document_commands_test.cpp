#include "engine/DocumentTest.h"
#include "engine/menu_validation.h"
#include "support/PeakMemory.h"

#include <gmock/gmock.h>

using namespace vexa;
using namespace vexa::test;
using testing::IsEmpty;

namespace {

using DocumentCommands = DocumentTest;

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

TEST_F(DocumentCommands, UndoOutlivesNewAndOpen) {
    change();
    alerts.answers = {dontSave};
    controller().newDocument();
    EXPECT_TRUE(controller().undoManager().canUndo());
    change();
    EXPECT_EQ(list().batchList().back()->id, 1u) << "ids count on";
}

} // namespace
