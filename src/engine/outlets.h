#pragma once

#include "batch/VexaBatchStripeData.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace vexa {

class TimecodeDisplay;

// What the controller sees of its surroundings: a window's controls, or a terminal in their
// place. Setting a control from here never triggers its action.

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
    /// Shows the list as it now is, with no row selected.
    virtual void reloadData() = 0;
    virtual bool hasSelectedRows() const = 0;
    virtual RowIndexes selectedRowIndexes() const = 0;
    /// Selects these rows and no others.
    virtual void selectRows(const RowIndexes& rows) = 0;
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

/// Asks for the reel and the title of a new item of the list.
class AddToPanel {
public:
    virtual ~AddToPanel() = default;
    virtual void setReel(std::uint64_t reel) = 0;
    /// 0 when what stands in the field is no number.
    virtual std::uint64_t reel() const = 0;
    /// The title stays from one time to the next.
    virtual QString title() const = 0;
    virtual void setTitlePlaceholder(const QString& text) = 0;
    /// Shows the panel over all else; returns one of the codes below when it has been closed.
    virtual int runModal() = 0;
};

inline constexpr int panelCancelled = 0;
inline constexpr int panelConfirmed = 1;

/// A question with buttons; the first is the default.
struct Alert {
    QString message;
    QString information;
    std::vector<QString> buttons;
    /// The operator did not ask for it, and may be at the machine or in the middle of typing.
    bool comesUnasked = false;
};

/// What an alert ends with: this for its first button, one more for each further one; 0 when it
/// was taken down without an answer, as when the program is told to end.
inline constexpr int alertUnanswered = 0;
inline constexpr int alertFirstButton = 1000;
inline constexpr int alertSecondButton = 1001;
inline constexpr int alertThirdButton = 1002;

/// Asks the operator and returns when answered.
class Alerts {
public:
    virtual ~Alerts() = default;
    virtual int runModal(const Alert& alert) = 0;
};

/// Lets the operator choose a batch list file, and returns when chosen. Nothing when cancelled.
class FilePanels {
public:
    virtual ~FilePanels() = default;
    virtual std::optional<QString> runOpenPanel() = 0;
    /// name: what the panel proposes.
    virtual std::optional<QString> runSavePanel(const QString& name) = 0;
};

/// The files that were opened last, in the menu and on the desktop.
class RecentDocuments {
public:
    virtual ~RecentDocuments() = default;
    virtual void noteNewRecentDocument(const QString& path) = 0;
};

/// Lets the operator change the preferences.
class PrefsPanel {
public:
    virtual ~PrefsPanel() = default;
    /// Returns when the panel has been closed, and what was confirmed there is in force.
    virtual void showPreferences() = 0;
};

/// All of them; each is set and outlives the controller.
struct Outlets {
    WindowTitle* window = nullptr;
    RadioMatrix* transportMatrix = nullptr;
    RadioMatrix* frameRateMatrix = nullptr;
    RadioMatrix* syncTypeMatrix = nullptr;
    RadioMatrix* batchRadios = nullptr;
    TimecodeDisplay* currentTimeButton = nullptr;
    TimecodeDisplay* startTimeButton = nullptr;
    TimecodeDisplay* endTimeButton = nullptr;
    Button* stopTimeCheck = nullptr;
    Button* batchCheck = nullptr;
    Button* addToBatchButton = nullptr;
    Button* removeFromBatchButton = nullptr;
    BatchTable* batchTable = nullptr;
    TextField* currentStripeItemLabel = nullptr;
    PrefsPanel* prefsController = nullptr;
    AddToPanel* addToPanel = nullptr;
    Alerts* alerts = nullptr;
    FilePanels* filePanels = nullptr;
    RecentDocuments* recentDocuments = nullptr;
};

} // namespace vexa
