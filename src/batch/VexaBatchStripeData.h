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

/// Row numbers of the list, ascending.
using RowIndexes = std::set<std::size_t>;

/// The batch stripe list: its items in order, the ones selected for a run, and one cursor by which
/// a run walks the list or the selection. It registers no undo and knows of no unsaved changes.
/// Main thread only. No item given to it is null.
///
/// An object stands in one row only: adding one that the list holds puts in a copy. So a row is
/// known by its object wherever it moves, even among rows that show the same.
///
/// Adding puts the whole list into the order of comesBefore(); among equivalent items the new one
/// comes last. Nothing else sorts: a replaced list stays as it is, and an edited title leaves its
/// row in place, until the next addition.
class VexaBatchStripeData {
public:
    /// The instance made last, null when there is none or when that one is gone.
    static VexaBatchStripeData* sharedBatchData();

    /// Makes the new instance the shared one.
    explicit VexaBatchStripeData(Vexa_RemoteAppDelegate* owner);
    ~VexaBatchStripeData();
    VexaBatchStripeData(const VexaBatchStripeData&) = delete;
    VexaBatchStripeData& operator=(const VexaBatchStripeData&) = delete;

    Vexa_RemoteAppDelegate* owner() const { return m_owner; }
    void setOwner(Vexa_RemoteAppDelegate* owner) { m_owner = owner; }

    const BatchItems& batchList() const { return m_batchList; }
    void setBatchList(BatchItems items) { replaceBatchList(std::move(items)); }

    /// Hands out the next item id; every call gives another one, from 0 up. Neither clearing nor
    /// replacing the list changes the count, so an id can equal that of an item out of a file.
    std::uint64_t nextItemID() { return m_nextItemID++; }
    void setNextItemID(std::uint64_t id) { m_nextItemID = id; }

    /// Adds an item made of these values and the next id. Checks nothing.
    BatchItemRef addItemWithReel(std::uint64_t reel, const QString& title,
                                 const StripeSettings& settings);
    void addItem(const BatchItemRef& item);
    void addItems(BatchItems items);
    /// Removes every item whose fields all equal the given one's.
    void removeItem(const BatchItemRef& item);
    /// Removes the items of these rows and returns them, that of the highest row first. Rows that
    /// do not exist are passed over.
    BatchItems deleteIndexedItems(const RowIndexes& rows);
    void replaceBatchList(BatchItems items);
    void clearBatchList() { replaceBatchList({}); }

    /// Selects the items of these rows. What becomes of the list later does not change the
    /// selection.
    void setSelection(const RowIndexes& rows) { setSelectedItems(itemsOfRows(rows)); }
    /// Empty when nothing is selected.
    const BatchItems& selectedItems() const { return m_selectedItems; }
    void setSelectedItems(BatchItems items) {
        m_selectedItems = std::move(items);
        ++m_revision;
    }

    /// Another number whenever the items, their order or the selection have changed. Titles may
    /// have been edited all the same.
    std::uint64_t revision() const { return m_revision; }

    /// The items of these rows, in row order. Rows that do not exist are passed over.
    BatchItems itemsOfRows(const RowIndexes& rows) const;
    /// Where these very objects stand; those that the list does not hold are passed over.
    RowIndexes rowsOfItems(const BatchItems& items) const;

    std::uint64_t numItems() const { return m_batchList.size(); }
    std::uint64_t numSelectedItems() const { return m_selectedItems.size(); }

    /// The cursor: a row of the list or of the selection, whichever is being walked.
    std::uint64_t curItem() const { return m_curItem; }
    void setCurItem(std::uint64_t row) { m_curItem = row; }
    /// These move the cursor, to the first row or on by one, and return the item there; null past
    /// the end.
    BatchItemRef firstItem();
    BatchItemRef nextItem();
    BatchItemRef firstSelectedItem();
    BatchItemRef nextSelectedItem();
    /// Whether the next step of the cursor finds an item.
    bool areMoreItemsAvailable() const { return m_curItem + 1 < numItems(); }
    bool areMoreSelectedItemsAvailable() const { return m_curItem + 1 < numSelectedItems(); }

    /// The fields of an item; 0, or a null string, of a null item.
    static std::uint64_t reelOfItem(const BatchItemRef& item);
    static QString titleOfItem(const BatchItemRef& item);
    static std::uint64_t startOfItem(const BatchItemRef& item);
    static std::uint64_t stopOfItem(const BatchItemRef& item);
    static std::uint64_t rateOfItem(const BatchItemRef& item);
    static std::uint64_t typeOfItem(const BatchItemRef& item);
    static std::uint64_t idOfItem(const BatchItemRef& item);

    /// The list as a table: columns are item keys, rows are below numberOfRowsInTableView().
    std::size_t numberOfRowsInTableView() const { return m_batchList.size(); }
    /// A cell's text: times as "hh:mm:ss:ff", rate and type by name, other fields as they are.
    QString objectValueForTableColumn(QStringView column, std::size_t row) const;
    /// Titles only.
    static bool shouldEditTableColumn(QStringView column) { return column == item_key::title; }
    /// Changes a title; other columns are left alone.
    void setObjectValue(const QString& value, QStringView column, std::size_t row);
    /// "hh:mm:ss:ff" of a packed timecode, whose upper 32 bits count for nothing.
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
    bool m_knownInOrder = true; ///< what makes adding to a long list quick
};

} // namespace vexa
