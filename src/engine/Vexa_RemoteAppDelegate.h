#pragma once

#include "engine/ControllerState.h"
#include "engine/RunDisplay.h"
#include "engine/VexaAddToBatchController.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>

namespace vexa {

/// The application's controller. It forwards the operator's actions to the run, the list and the
/// undo manager, and shows the results through its outlets, which stand for a window or a terminal.
/// What it holds is in its ControllerState. Operations are grouped by source file; its name heads
/// each group. Main thread only.
class Vexa_RemoteAppDelegate : public QObject, public ControllerState {
    Q_OBJECT

public:
    /// The run loop must outlive this.
    Vexa_RemoteAppDelegate(const Outlets& outlets, RunLoop& runLoop);
    ~Vexa_RemoteAppDelegate() override;

    // start_up.cpp
    /// Sets the initial state. Call once, when the outlets are ready.
    void applicationDidFinishLaunching();

    // control_enabling.cpp
    /// Enables the batch controls that the list and the selection allow. An empty list turns batch
    /// striping off.
    void handleBatchControlEnabling();
    /// FSK has no frame rate: while it is chosen, the rate radios are off and disabled.
    void handleFrameRateEnabling();

    // transport.cpp
    void handleTransportButtons() { setTransportState(m_outlets.transportMatrix->selectedTag()); }
    void handleStripeMenuItems(std::uint64_t tag);
    /// Takes any code: 1 starts a run, 0 stops it, 2 pauses it; others are only recorded.
    void setTransportState(std::uint64_t state);
    /// Shows a state without entering it.
    void setTransportButton(std::uint64_t tag) {
        m_outlets.transportMatrix->selectCellWithTag(tag);
    }

    // settings.cpp
    /// Takes any code. While the transport is stopped, emits vexaratechg().
    void setFrameRate(std::uint64_t code);
    void setFrameAndSyncFromDefaults();
    void saveCurrentSettings() { m_plan.saved = m_plan.settings; }
    /// Restores the settings last saved; zeros if none were saved since launch.
    void restoreCurrentSettings();
    bool readPrefs();
    void writePrefs();
    void handlePrefsMenu() { m_outlets.prefsController->showPreferences(); }

    // settings_edits.cpp: every edit can be undone, even one that changes nothing
    void handleStartTimeButton();
    void handleStopTimeButton();
    /// A time was entered in the display with that tag. A stop time that is not after the start
    /// time becomes five seconds after it.
    void timeChanged(int tag, std::uint64_t entered);
    void handleStopTimeCheck();
    void handleSetStopTimeMenu();
    void handleFrameRateRadios();
    void handleFrameRateMenuItems(std::uint64_t tag);
    void handleSyncTypeRadios();
    void handleSyncTypeMenuItems(std::uint64_t tag);
    void setStartTime(std::uint64_t start, std::uint64_t stop, const QString& actionName);
    void setStopTime(std::uint64_t stop, bool flag, const QString& actionName);
    void setStopTimeSet(bool flag, std::uint64_t stopTime, const QString& actionName);
    void undoRedoSetFrameRate(std::uint64_t code, const QString& actionName);
    void undoRedoSetSyncType(std::uint64_t code, const QString& actionName);
    void undo();
    void redo();

    // batch_editing.cpp: every edit can be undone, except choosing the mode from the menu
    /// Opens the panel for a new item with the current settings, if a stop time is set.
    void handleAddToBatchListButton();
    void handleRemoveFromBatchListButton();
    /// The delete key was pressed in the table.
    void handleDeleteRows() { handleRemoveFromBatchListButton(); }
    void handleBatchCheck();
    /// Choosing the mode turns batch striping on. Undoing the choice leaves it on.
    void handleBatchRadios();
    /// Takes any tag; unknown ones do nothing.
    void handleBatchListMenuItems(std::uint64_t tag);
    /// Selects this row, or the first that is selected, and all after it for the next run.
    void stripeFromThisRow();
    /// Whether no run is under way and a row is selected or has the keyboard focus.
    bool canStripeFromThisRow() const;
    /// A click on a row does nothing by itself.
    void handleBatchTableEdit() {}
    void tableViewSelectionDidChange() { handleBatchControlEnabling(); }
    void addItemToBatchList(std::uint64_t reel, const QString& title,
                            const StripeSettings& settings);
    void addItemToBatchList(const BatchItemRef& item, const QString& actionName);
    void removeItemFromBatchList(const BatchItemRef& item, const QString& actionName);
    /// During undo, puts the items back; otherwise deletes the rows.
    void undoRedoRemoveFromBatchList(const BatchItems& items, const RowIndexes& rows,
                                     const QString& actionName);
    void undoRedoUseBatchStriping(bool useBatch, const QString& actionName);
    void undoRedoBatchMode(std::uint64_t mode, const QString& actionName);

    // row_edits.cpp: each of these is one Undo, of items added, deleted or both
    /// Takes the rows of these items out of the list and adds the others, which are then selected.
    void changeItems(const BatchItems& removed, const BatchItems& added, const QString& actionName);
    /// The selected items, in row order.
    BatchItems selectedItems() const;
    void duplicateRows();
    void takeSettingsFromRow();
    /// The row keeps its reel and its title.
    void replaceRowBySettings();
    /// Opens the panel for an item that begins where the last row ends.
    void addNext();

    // document_commands.cpp
    void newDocument();
    void openDocument();
    void saveDocument();
    void saveDocumentAs();
    void revertDocumentToSaved();
    /// Opens a file from the desktop or the command line. Returns true even if nothing was opened,
    /// as during a run.
    bool openFile(const QString& path);
    /// Whether the window may close. Asks to save unsaved changes first.
    bool windowShouldClose();
    /// Whether unsaved changes may be lost. Asks to save them, if there are any.
    bool saveFirst();
    bool askRevert();
    void openListWithURL(const QString& path);
    void saveDocumentWithURL(const QString& path);
    /// Shows the file's name, up to its first full stop, in the window's title.
    void setListTitle();

Q_SIGNALS:
    /// The frame rate was set while the transport was stopped, and the displays have adopted it.
    void vexaratechg();
    /// Commands may have become available or unavailable.
    void stateChanged();

private:
    void connectRun(); // transport.cpp, like the three that follow
    void followPhase();
    void followEnd(StripeRun::End how);
    void changeReel(std::uint64_t reel);
    void fitBatchControls();  // control_enabling.cpp
    void announceFrameRate(); // settings.cpp
    void showSettings(std::uint64_t start, std::uint64_t stop);
    void pushStopTimePastStart(); // settings_edits.cpp
    void registerEdit(const QString& actionName, std::function<void(const QString&)> inverse);
    /// Changes the list and shows the result. Selects the rows of these items or, if there are
    /// none, those that were selected and remain. The keyboard focus stays with its row. The caller
    /// announces the change.
    void changeBatchList(const std::function<void()>& change,
                         const BatchItems& toSelect = {}); // batch_editing.cpp
    void registerRemoval(BatchItems items, const RowIndexes& rows, const QString& actionName);
    bool mayReplaceList(); // document_commands.cpp
    int ask(const Alert& question);
    int askToSave();
    void listReplaced();

    VexaAddToBatchController m_addToBatchController;
    RunDisplay m_display;
    bool m_prevStopTimeSet = false; ///< the flag before the current edit
    bool m_asking = false;          ///< a question about the list is open
};

} // namespace vexa
