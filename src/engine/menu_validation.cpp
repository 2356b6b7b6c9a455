#include "engine/menu_validation.h"

#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/sync_type.h"

namespace vexa {

namespace {

MenuItemState validateBatchListItem(const Vexa_RemoteAppDelegate& controller, std::uint64_t tag) {
    const auto mode = [&](bool enabled) {
        return MenuItemState{enabled, enabled && controller.batchMode() == tag, {}};
    };
    switch (tag) {
    case batch_menu::all:
        return mode(controller.useBatch());
    case batch_menu::selected:
        return mode(controller.useBatch() && controller.outlets().batchTable->hasSelectedRows());
    case batch_menu::useBatch:
        if (controller.batchStripeData().numItems() == 0)
            return {false, false, {}};
        return {true,
                {},
                controller.useBatch() ? QStringLiteral("Turn Off Batch Striping")
                                      : QStringLiteral("Turn On Batch Striping")};
    case batch_menu::add:
        return {controller.stopTimeSet(), {}, {}};
    default:
        return {false, {}, {}};
    }
}

bool isRowCommandEnabled(const Vexa_RemoteAppDelegate& controller, std::uint64_t tag) {
    const auto& table = *controller.outlets().batchTable;
    const bool hasItems = controller.batchStripeData().numItems() != 0;
    switch (tag) {
    case row_menu::copy: // these act on time displays and text fields, too
    case row_menu::paste:
    case row_menu::selectAll:
    case row_menu::check:
    case row_menu::importRows:
        return true;
    case row_menu::cut:
    case row_menu::duplicate:
    case row_menu::remove:
        return table.hasSelectedRows();
    case row_menu::rename:
        return table.onlySelectedRow().has_value();
    case row_menu::takeSettings:
        return table.onlySelectedRow() && controller.transportState() == transport::stopped;
    case row_menu::replaceBySettings:
        return table.onlySelectedRow() && controller.stopTimeSet();
    case row_menu::addNext:
        return hasItems && controller.stopTimeSet();
    case row_menu::exportRows:
    case row_menu::print:
    case row_menu::exportPdf:
        return hasItems;
    default:
        return false;
    }
}

} // namespace

MenuItemState validateMenuItem(const Vexa_RemoteAppDelegate& controller, MenuAction action,
                               std::uint64_t tag) {
    const bool stopped = controller.transportState() == transport::stopped;
    switch (action) {
    case MenuAction::handlePrefsMenu:
    case MenuAction::saveDocumentAs:
        return {true, {}, {}};
    case MenuAction::handleFrameRateMenuItems:
        if (controller.syncType() == sync::fsk)
            return {false, {}, {}};
        return {true, tag == controller.frameRate(), {}};
    case MenuAction::handleSyncTypeMenuItems:
        return {true, tag == controller.syncType(), {}};
    case MenuAction::handleBatchListMenuItems:
        return validateBatchListItem(controller, tag);
    case MenuAction::handleRowMenuItems:
        return {isRowCommandEnabled(controller, tag), {}, {}};
    case MenuAction::handleSetStopTimeMenu:
        return {true,
                {},
                controller.stopTimeSet() ? QStringLiteral("Don't Set Stop Time")
                                         : QStringLiteral("Set Stop Time")};
    case MenuAction::handleStripeMenuItems:
        return {tag != controller.transportState(), {}, {}};
    case MenuAction::stripeFromThisRow:
        return {controller.canStripeFromThisRow(), {}, {}};
    case MenuAction::undo:
        return {
            controller.undoManager().canUndo(), {}, controller.undoManager().undoMenuItemTitle()};
    case MenuAction::redo:
        return {
            controller.undoManager().canRedo(), {}, controller.undoManager().redoMenuItemTitle()};
    case MenuAction::newDocument:
    case MenuAction::openDocument:
        return {stopped, {}, {}};
    case MenuAction::saveDocument:
        return {controller.dirty(), {}, {}};
    case MenuAction::revertDocumentToSaved:
        return {controller.dirty() && controller.previouslySaved(), {}, {}};
    case MenuAction::other:
        return {tag == unavailableWhileStriping && stopped, {}, {}};
    }
    return {};
}

} // namespace vexa
