#include "support/ControllerRig.h"

#include <gtest/gtest.h>

using namespace vexa;
using namespace vexa::test;

namespace {

struct AddToBatch : testing::Test {
    /// Opens the panel for an item at 02:00:00:00 and lets the operator answer.
    void show(const std::function<int()>& answer) {
        panel.answer = answer;
        controller.showAddToBatchPanelWithStart(
            {tc("02:00:00:00"), tc("02:10:00:00"), rate::fps24, sync::fsk});
    }
    const BatchItems& items() { return rig.controller.batchStripeData().batchList(); }

    ControllerRig rig;
    PlainAddToPanel& panel = rig.ui.addToPanel;
    VexaAddToBatchController controller{rig.controller, panel};
};

TEST_F(AddToBatch, ProposesTheStartHourAsTheReel) {
    std::uint64_t proposed = 0;
    QString placeholder;
    show([&] {
        proposed = panel.reel();
        placeholder = panel.titlePlaceholder();
        return panelCancelled;
    });
    EXPECT_EQ(proposed, 2u);
    EXPECT_EQ(placeholder, QStringLiteral("title here"));
}

TEST_F(AddToBatch, ProposesOnlyTheHoursByte) {
    std::uint64_t proposed = 0;
    panel.answer = [&] { return proposed = panel.reel(), panelCancelled; };
    controller.showAddToBatchPanelWithStart({0xFFFF'FFFF'17FF'FFFF, 0, 0, 0});
    EXPECT_EQ(proposed, 0x17u);
}

TEST_F(AddToBatch, ConfirmedTheItemHasWhatWasTypedAndWhatWasHandedIn) {
    show([&] {
        panel.setReel(UINT64_MAX);
        panel.setTitle(QStringLiteral("Spools"));
        return panelConfirmed;
    });
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(*items()[0], (BatchItem{UINT64_MAX, QStringLiteral("Spools"), tc("02:00:00:00"),
                                      tc("02:10:00:00"), rate::fps24, sync::fsk, 0}));
}

TEST_F(AddToBatch, WithoutATitleTheItemIsUntitled) {
    show([] { return panelConfirmed; });
    ASSERT_EQ(items().size(), 1u);
    EXPECT_EQ(items()[0]->title, QStringLiteral("untitled"));
}

TEST_F(AddToBatch, CancelledNothingIsAddedOrRecorded) {
    show([&] {
        panel.setTitle(QStringLiteral("Spools"));
        return panelCancelled;
    });
    EXPECT_TRUE(items().empty());
    EXPECT_FALSE(rig.controller.undoManager().canUndo());
    EXPECT_FALSE(rig.controller.dirty());
}

TEST_F(AddToBatch, TheTitleStaysForTheNextTime) {
    panel.setTitle(QStringLiteral("Spools"));
    QString found;
    show([&] { return found = panel.title(), panelConfirmed; });
    EXPECT_EQ(found, QStringLiteral("Spools"));
}

} // namespace
