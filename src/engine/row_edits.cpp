#include "engine/Vexa_RemoteAppDelegate.h"
#include "engine/least_stripe.h"

#include <memory>

namespace vexa {

namespace {

StripeSettings startingAt(std::uint64_t start, StripeSettings settings) {
    settings.startTime = start;
    if (settings.stopTime <= start)
        settings.stopTime = leastStopTime(start, settings.frameRate);
    return settings;
}

} // namespace

BatchItems Vexa_RemoteAppDelegate::selectedItems() const {
    return m_batchStripeData.itemsOfRows(m_outlets.batchTable->selectedRowIndexes());
}

void Vexa_RemoteAppDelegate::changeItems(const BatchItems& removed, const BatchItems& added,
                                         const QString& actionName) {
    auto& table = *m_outlets.batchTable;
    auto& list = m_batchStripeData;
    const auto emptied = list.rowsOfItems(removed);
    changeBatchList(
        [&] {
            list.deleteIndexedItems(emptied);
            list.addItems(added);
        },
        added);
    const auto filled = added.empty() ? RowIndexes() : table.selectedRowIndexes();
    table.moveKeyboardTo(filled.empty() ? emptied : filled);
    if (!filled.empty())
        table.scrollToItem(list.batchList()[*filled.begin()]);
    // As with the panel: adding items, or undoing that, is an unsaved change. Redoing an addition
    // is not, nor is any deletion.
    const auto& addition = m_undoManager.isUndoing() ? removed : added;
    if (!addition.empty() && !m_undoManager.isRedoing())
        m_document.setDirty();
    registerEdit(actionName, [this, removed, added](const QString& name) {
        changeItems(added, removed, name);
    });
}

void Vexa_RemoteAppDelegate::duplicateRows() {
    BatchItems copies;
    for (const auto& item : selectedItems()) {
        copies.push_back(std::make_shared<BatchItem>(*item));
        copies.back()->id = m_batchStripeData.nextItemID();
        copies.back()->original = nullptr;
    }
    if (!copies.empty())
        changeItems({}, copies, QStringLiteral("Duplicate"));
}

void Vexa_RemoteAppDelegate::takeSettingsFromRow() {
    const auto row = m_outlets.batchTable->onlySelectedRow();
    if (!row)
        return;
    const auto item = m_batchStripeData.batchList()[*row];
    const auto name = QStringLiteral("Take Settings from Row");
    undoRedoSetFrameRate(item->rate, name);
    undoRedoSetSyncType(item->type, name);
    setStartTime(item->start, item->stop, name);
    setStopTimeSet(true, item->stop, name);
}

void Vexa_RemoteAppDelegate::replaceRowBySettings() {
    const auto row = m_outlets.batchTable->onlySelectedRow();
    if (!row || !m_plan.stopTimeSet)
        return;
    m_outlets.batchTable->commitEditing();
    const auto item = m_batchStripeData.batchList()[*row];
    const auto& [start, stop, rate, type] = m_plan.settings;
    const auto replacement = std::make_shared<BatchItem>(BatchItem{
        item->reel, item->title, start, stop, rate, type, m_batchStripeData.nextItemID()});
    changeItems({item}, {replacement}, QStringLiteral("Replace Row by Settings"));
}

void Vexa_RemoteAppDelegate::addNext() {
    if (m_batchStripeData.numItems() == 0 || !m_plan.stopTimeSet)
        return;
    const auto last = m_batchStripeData.batchList().back();
    m_addToBatchController.showAddToBatchPanel(startingAt(last->stop, m_plan.settings), last->reel);
}

} // namespace vexa
