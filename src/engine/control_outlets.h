#pragma once

#include "batch/VexaBatchStripeData.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vexa {

struct FrameRate;

// The controls as the controller sees them, in a window or a terminal. Setting a control through
// these interfaces never triggers its action.

/// Shows a time.
class TimecodeDisplay {
public:
    virtual ~TimecodeDisplay() = default;
    /// Packed timecode; bits above the low 32 are ignored.
    virtual void setBcdValue(std::uint64_t value) = 0;
    /// Sets the rate for future times. The shown time does not change.
    virtual void setFrameRate(const FrameRate& rate) = 0;
    /// Makes the shown time valid at the rate: excess frames carry into the seconds.
    virtual void frameRateChanged() = 0;
};

/// A time display that accepts typed times.
class TimecodeEntry : public TimecodeDisplay {
public:
    /// Begins (1) or ends (0) an entry. Ending it commits the typed time; a time that is invalid
    /// at the rate keeps the entry open.
    virtual void setState(int state) = 0;
    virtual int state() const = 0;
};

/// Tags that identify the displays.
namespace time_tag {
inline constexpr int start = 0;
inline constexpr int stop = 1;
inline constexpr int current = 2;
} // namespace time_tag

/// A group of radio cells, each with a tag.
class RadioMatrix {
public:
    virtual ~RadioMatrix() = default;
    /// Selects the cell and switches it on. Does nothing if there is no such cell.
    virtual void selectCellWithTag(std::uint64_t tag) = 0;
    virtual std::uint64_t selectedTag() const = 0;
    /// Switches the selected cell off, so that none is on.
    virtual void switchSelectedCellOff() = 0;
    virtual void setMatrixEnabled(bool enabled) = 0;
    virtual void setCellEnabled(std::uint64_t tag, bool enabled) = 0;
};

/// A push button or check box.
class Button {
public:
    virtual ~Button() = default;
    virtual void setState(bool on) = 0;
    virtual bool state() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void setHidden(bool hidden) = 0;
    virtual void setToolTip(const QString& text) = 0;
};

class TextField {
public:
    virtual ~TextField() = default;
    virtual void setStringValue(const QString& text) = 0;
};

class WindowTitle {
public:
    virtual ~WindowTitle() = default;
    virtual void setTitle(const QString& title) = 0;
};

/// How far a batch run has got with an item.
enum class StripeMark {
    none,
    underWay,
    finished,
    stoppedHere, ///< interrupted, or the one that would have come next
};

/// The table that shows the batch list.
class BatchTable {
public:
    virtual ~BatchTable() = default;
    /// Shows the current list. Afterwards no row is selected or has the keyboard focus.
    virtual void reloadData() = 0;
    /// Commits the title that is being typed, if any, and closes its editor.
    virtual void commitEditing() = 0;
    virtual bool hasSelectedRows() const = 0;
    virtual RowIndexes selectedRowIndexes() const = 0;
    /// The selected row, if there is one and no other; quick for any selection.
    virtual std::optional<std::size_t> onlySelectedRow() const = 0;
    /// Selects exactly these rows.
    virtual void selectRows(const RowIndexes& rows) = 0;
    /// The row with the keyboard focus, if any.
    virtual RowIndexes keyboardRow() const = 0;
    /// Moves the keyboard focus to the first of these rows, or to the last row of a shorter list.
    /// Does nothing without rows. Neither selects nor scrolls.
    virtual void moveKeyboardTo(const RowIndexes& rows) = 0;
    /// The item keys that the columns show, from left to right.
    virtual void setColumnIdentifiers(const QStringList& identifiers) = 0;
    /// Replaces the platform's header with the table's own.
    virtual void installHeader() = 0;
    virtual void setIntercellSpacing(double width, double height) = 0;
    /// Scrolls to the item's row, if it is in the list. The selection does not change.
    virtual void scrollToItem(const BatchItemRef& item) = 0;
    /// Marks an item's row. A row under way scrolls into view; the selection does not change.
    virtual void markItem(const BatchItemRef& item, StripeMark mark) = 0;
    virtual void clearMarks() = 0;
};

} // namespace vexa
