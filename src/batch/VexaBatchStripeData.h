#pragma once

#include "batch/BatchItem.h"
#include "timecode/StripeSettings.h"

#include <QString>
#include <QStringView>

#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>

namespace vexa {

class Vexa_RemoteAppDelegate;

/// Row numbers, ascending.
using RowIndexes = std::set<std::size_t>;

/// The batch stripe list: its items in order, the items selected for a run, and the cursor that a
/// run moves through either. It registers no undo and tracks no unsaved changes. Main thread only.
/// Items passed to it must not be null.
///
/// Each object has one row only: adding an object that is already in the list adds a copy. So an
/// object identifies its row wherever it moves, even among rows that look alike.
///
/// Adding an item sorts the whole list by comesBefore(); among equivalent items the new one comes
/// last. Nothing else sorts: replacing the list or editing a title keeps the rows in place until
/// the next addition.
class VexaBatchStripeData {
public:
    /// The instance created last; null if there is none or it no longer exists.
    static VexaBatchStripeData* sharedBatchData();

    /// The new instance becomes the shared one.
    explicit VexaBatchStripeData(Vexa_RemoteAppDelegate* owner);
    ~VexaBatchStripeData();
    VexaBatchStripeData(const VexaBatchStripeData&) = delete;
    VexaBatchStripeData& operator=(const VexaBatchStripeData&) = delete;

    Vexa_RemoteAppDelegate* owner() const { return m_owner; }
    void setOwner(Vexa_RemoteAppDelegate* owner) { m_owner = owner; }

    const BatchItems& batchList() const { return m_batchList; }
    void setBatchList(BatchItems items) { replaceBatchList(std::move(items)); }

    /// Returns the next item ID; each call returns a new one, from 0 up. Clearing or replacing the
    /// list does not reset the count, so an ID may equal one read from a file.
    std::uint64_t nextItemID() { return m_nextItemID++; }
    void setNextItemID(std::uint64_t id) { m_nextItemID = id; }

    /// Adds an item with these values and the next ID. Checks nothing.
    BatchItemRef addItemWithReel(std::uint64_t reel, const QString& title,
                                 const StripeSettings& settings);
    void addItem(const BatchItemRef& item);
    void addItems(BatchItems items);
    /// Removes every item that equals the given one in all fields.
    void removeItem(const BatchItemRef& item);
    /// Removes the items of these rows and returns them, highest row first. Ignores rows that do
    /// not exist.
    BatchItems deleteIndexedItems(const RowIndexes& rows);
    void replaceBatchList(BatchItems items);
    void clearBatchList() { replaceBatchList({}); }

    /// Selects the items of these rows. Later changes to the list do not affect the selection.
    void setSelection(const RowIndexes& rows) { setSelectedItems(itemsOfRows(rows)); }
    /// Empty if nothing is selected.
    const BatchItems& selectedItems() const { return m_selectedItems; }
    void setSelectedItems(BatchItems items) {
        m_selectedItems = std::move(items);
        ++m_revision;
    }

    /// A new number after each change to the items, their order or the selection. Edited titles do
    /// not count.
    std::uint64_t revision() const { return m_revision; }

    /// The items of these rows, in row order. Ignores rows that do not exist.
    BatchItems itemsOfRows(const RowIndexes& rows) const;
    /// The rows of these objects. Ignores objects that are not in the list.
    RowIndexes rowsOfItems(const BatchItems& items) const;

    std::uint64_t numItems() const { return m_batchList.size(); }
    std::uint64_t numSelectedItems() const { return m_selectedItems.size(); }

    /// The cursor: an index into the list or the selection, whichever the run uses.
    std::uint64_t curItem() const { return m_curItem; }
    void setCurItem(std::uint64_t row) { m_curItem = row; }
    /// These move the cursor to the first row, or forward by one, and return the item there; null
    /// past the end.
    BatchItemRef firstItem();
    BatchItemRef nextItem();
    BatchItemRef firstSelectedItem();
    BatchItemRef nextSelectedItem();
    /// Whether the cursor's next step reaches an item.
    bool areMoreItemsAvailable() const { return m_curItem + 1 < numItems(); }
    bool areMoreSelectedItemsAvailable() const { return m_curItem + 1 < numSelectedItems(); }

    /// The fields of an item; 0, or a null string, for a null item.
    static std::uint64_t reelOfItem(const BatchItemRef& item);
    static QString titleOfItem(const BatchItemRef& item);
    static std::uint64_t startOfItem(const BatchItemRef& item);
    static std::uint64_t stopOfItem(const BatchItemRef& item);
    static std::uint64_t rateOfItem(const BatchItemRef& item);
    static std::uint64_t typeOfItem(const BatchItemRef& item);
    static std::uint64_t idOfItem(const BatchItemRef& item);

    /// The list as a table. Columns are item keys; rows are below numberOfRowsInTableView().
    std::size_t numberOfRowsInTableView() const { return m_batchList.size(); }
    /// A cell's text: times as "hh:mm:ss:ff", rate and type by name, other fields as stored.
    QString objectValueForTableColumn(QStringView column, std::size_t row) const;
    /// Titles only.
    static bool shouldEditTableColumn(QStringView column) { return column == item_key::title; }
    /// Changes a title. Ignores other columns.
    void setObjectValue(const QString& value, QStringView column, std::size_t row);
    /// "hh:mm:ss:ff" of a packed timecode. Ignores its upper 32 bits.
    static QString timecodeStringFromBCDNumber(std::uint64_t number);

private:
    void sortUnlessInOrder();
    BatchItemRef ownRowFor(const BatchItemRef& item) const;

    Vexa_RemoteAppDelegate* m_owner;
    BatchItems m_batchList;
    BatchItems m_selectedItems;
    std::uint64_t m_curItem = 0;
    std::uint64_t m_nextItemID = 0;
    std::uint64_t m_revision = 0;
    bool m_knownInOrder = true; ///< makes adding to a long list fast
};

} // namespace vexa
