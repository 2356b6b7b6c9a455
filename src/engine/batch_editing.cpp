#include "engine/Vexa_RemoteAppDelegate.h"
#include "engine/menu_validation.h"

#include <utility>

namespace vexa {

namespace {

QString turnBatchStriping(bool on) {
    return QStringLiteral("Turn %1 Batch Striping")
        .arg(on ? QStringLiteral("On") : QStringLiteral("Off"));
}

QString stripe(std::uint64_t mode) {
    return QStringLiteral("Stripe %1")
        .arg(mode == batchModeAll ? QStringLiteral("All") : QStringLiteral("Selected"));
}

} // namespace

void Vexa_RemoteAppDelegate::changeBatchList(const std::function<void()>& change,
                                             const BatchItems& toSelect) {
    auto& table = *m_outlets.batchTable;
    const auto& list = m_batchStripeData;
    table.commitEditing();
    const auto selected =
        toSelect.empty() ? list.itemsOfRows(table.selectedRowIndexes()) : toSelect;
    const auto keyboard = list.itemsOfRows(table.keyboardRow());
    change();
    table.reloadData();
    table.selectRows(list.rowsOfItems(selected));
    table.moveKeyboardTo(list.rowsOfItems(keyboard));
    fitBatchControls();
}

void Vexa_RemoteAppDelegate::handleAddToBatchListButton() {
    if (m_plan.stopTimeSet)
        m_addToBatchController.showAddToBatchPanelWithStart(m_plan.settings);
}

void Vexa_RemoteAppDelegate::addItemToBatchList(std::uint64_t reel, const QString& title,
                                                const StripeSettings& settings) {
    BatchItemRef item;
    changeBatchList([&] { item = m_batchStripeData.addItemWithReel(reel, title, settings); });
    m_outlets.batchTable->scrollToItem(item);
    m_document.setDirty();
    registerEdit(QStringLiteral("Add to Batch List"),
                 [this, item](const QString& name) { removeItemFromBatchList(item, name); });
}

void Vexa_RemoteAppDelegate::removeItemFromBatchList(const BatchItemRef& item,
                                                     const QString& actionName) {
    changeBatchList([&] { m_batchStripeData.removeItem(item); });
    m_document.setDirty();
    registerEdit(actionName, [this, item](const QString& name) { addItemToBatchList(item, name); });
}

void Vexa_RemoteAppDelegate::addItemToBatchList(const BatchItemRef& item,
                                                const QString& actionName) {
    changeBatchList([&] { m_batchStripeData.addItem(item); });
    m_outlets.batchTable->scrollToItem(item);
    // Registers an addition, not a removal: undoing a redone addition adds a second copy.
    registerEdit(actionName, [this, item](const QString& name) { addItemToBatchList(item, name); });
}

void Vexa_RemoteAppDelegate::handleRemoveFromBatchListButton() {
    const auto rows = m_outlets.batchTable->selectedRowIndexes();
    if (rows.empty())
        return;
    BatchItems items; // never empty: every row of the table is in the list
    changeBatchList([&] { items = m_batchStripeData.deleteIndexedItems(rows); });
    m_outlets.batchTable->moveKeyboardTo(rows);
    registerRemoval(std::move(items), rows, QStringLiteral("Delete Selected Rows"));
}

void Vexa_RemoteAppDelegate::undoRedoRemoveFromBatchList(const BatchItems& items,
                                                         const RowIndexes& rows,
                                                         const QString& actionName) {
    auto& table = *m_outlets.batchTable;
    if (m_undoManager.isUndoing()) {
        changeBatchList([&] { m_batchStripeData.addItems(items); });
        table.moveKeyboardTo(m_batchStripeData.rowsOfItems(items));
        table.scrollToItem(items.back()); // the item of the lowest row
    } else {
        changeBatchList([&] { m_batchStripeData.deleteIndexedItems(rows); });
        table.moveKeyboardTo(rows);
    }
    registerRemoval(items, rows, actionName);
}

void Vexa_RemoteAppDelegate::registerRemoval(BatchItems items, const RowIndexes& rows,
                                             const QString& actionName) {
    registerEdit(actionName, [this, items = std::move(items), rows](const QString& name) {
        undoRedoRemoveFromBatchList(items, rows, name);
    });
}

void Vexa_RemoteAppDelegate::handleBatchCheck() {
    const bool on = m_outlets.batchCheck->state();
    undoRedoUseBatchStriping(on, turnBatchStriping(on));
}

void Vexa_RemoteAppDelegate::undoRedoUseBatchStriping(bool useBatch, const QString& actionName) {
    const bool old = std::exchange(m_plan.useBatch, useBatch);
    m_outlets.batchCheck->setState(useBatch);
    registerEdit(actionName,
                 [this, old](const QString& name) { undoRedoUseBatchStriping(old, name); });
}

void Vexa_RemoteAppDelegate::handleBatchRadios() {
    const auto mode = m_outlets.batchRadios->selectedTag();
    m_previousUseBatch = m_plan.useBatch;
    if (mode == m_plan.batchMode)
        return;
    m_plan.useBatch = true;
    m_outlets.batchCheck->setState(true);
    undoRedoBatchMode(mode, stripe(mode));
}

void Vexa_RemoteAppDelegate::undoRedoBatchMode(std::uint64_t mode, const QString& actionName) {
    const auto old = std::exchange(m_plan.batchMode, mode);
    if (old == mode)
        return;
    m_outlets.batchRadios->selectCellWithTag(mode);
    registerEdit(actionName, [this, old](const QString& name) { undoRedoBatchMode(old, name); });
}

bool Vexa_RemoteAppDelegate::canStripeFromThisRow() const {
    const auto& table = *m_outlets.batchTable;
    const bool isRunOver =
        m_transportState == transport::stopped || m_transportState == transport::paused;
    return isRunOver && (table.hasSelectedRows() || !table.keyboardRow().empty());
}

void Vexa_RemoteAppDelegate::stripeFromThisRow() {
    auto& table = *m_outlets.batchTable;
    const auto these = table.hasSelectedRows() ? table.selectedRowIndexes() : table.keyboardRow();
    if (these.empty())
        return;
    RowIndexes rows;
    for (auto row = *these.begin(); row < m_batchStripeData.numItems(); ++row)
        rows.insert(rows.end(), row);
    table.selectRows(rows);
    fitBatchControls();
    m_plan.useBatch = true;
    m_outlets.batchCheck->setState(true);
    if (m_plan.batchMode == batchModeSelected)
        Q_EMIT stateChanged();
    else
        undoRedoBatchMode(batchModeSelected, stripe(batchModeSelected));
}

void Vexa_RemoteAppDelegate::handleBatchListMenuItems(std::uint64_t tag) {
    switch (tag) {
    case batch_menu::all:
    case batch_menu::selected:
        m_plan.batchMode = tag;
        m_outlets.batchRadios->selectCellWithTag(tag);
        Q_EMIT stateChanged();
        break;
    case batch_menu::useBatch:
        undoRedoUseBatchStriping(!m_plan.useBatch, turnBatchStriping(!m_plan.useBatch));
        break;
    case batch_menu::add:
        handleAddToBatchListButton();
        break;
    default:
        break;
    }
}

} // namespace vexa
