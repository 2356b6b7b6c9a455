#pragma once

#include "batch/VexaBatchStripeData.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace vexa {

struct FrameRate;

// The controls that the controller sees: those of a window, or a terminal in their place. Setting
// a control from here never triggers its action.

/// Shows a time.
class TimecodeDisplay {
public:
    virtual ~TimecodeDisplay() = default;
    /// Packed timecode; what it holds above its 32 bits is cut off.
    virtual void setBcdValue(std::uint64_t value) = 0;
    /// The rate by which times count from now on. What is shown stays.
    virtual void setFrameRate(const FrameRate& rate) = 0;
    /// Brings the shown time into line with the rate: frames beyond it carry into the seconds.
    virtual void frameRateChanged() = 0;
};

/// A time display that can be typed into.
class TimecodeEntry : public TimecodeDisplay {
public:
    /// Begins (1) or ends (0) an entry. What was typed is committed by the end, unless it is no
    /// time at the rate: then the entry goes on.
    virtual void setState(int state) = 0;
    virtual int state() const = 0;
};

/// Tags by which the displays are told apart.
namespace time_tag {
inline constexpr int start = 0;
inline constexpr int stop = 1;
inline constexpr int current = 2;
} // namespace time_tag

/// Radio cells in a group, each with a tag.
class RadioMatrix {
public:
    virtual ~RadioMatrix() = default;
    /// Selects the cell and switches it on; with no such cell, nothing changes.
    virtual void selectCellWithTag(std::uint64_t tag) = 0;
    virtual std::uint64_t selectedTag() const = 0;
    /// Leaves no cell on.
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

/// How far a batch run has come with an item.
enum class StripeMark { none, underWay, finished };

/// The batch list on screen.
class BatchTable {
public:
    virtual ~BatchTable() = default;
    /// Shows the list as it now is. No row is selected, and the keyboard is at none.
    virtual void reloadData() = 0;
    /// Takes the title that is being typed, if any, and ends its editor.
    virtual void commitEditing() = 0;
    virtual bool hasSelectedRows() const = 0;
    virtual RowIndexes selectedRowIndexes() const = 0;
    /// Selects these rows and no others.
    virtual void selectRows(const RowIndexes& rows) = 0;
    /// The row that the keyboard is at, if it is at one.
    virtual RowIndexes keyboardRow() const = 0;
    /// Puts the keyboard at the first of these rows, or at the list's last where that is less;
    /// without rows, it stays. Neither selects nor scrolls.
    virtual void moveKeyboardTo(const RowIndexes& rows) = 0;
    /// What the columns show, from the left: keys of an item's fields.
    virtual void setColumnIdentifiers(const QStringList& identifiers) = 0;
    /// Replaces the platform's header by the list's own.
    virtual void installHeader() = 0;
    virtual void setIntercellSpacing(double width, double height) = 0;
    /// Brings the item's row into view, if the list holds it. The selection stays.
    virtual void scrollToItem(const BatchItemRef& item) = 0;
    /// Marks an item's row, and brings it into view when it comes under way. The selection stays.
    virtual void markItem(const BatchItemRef& item, StripeMark mark) = 0;
    virtual void clearMarks() = 0;
};

} // namespace vexa
