#pragma once

#include "batch/VexaBatchStripeData.h"
#include "engine/RunLoop.h"
#include "engine/UndoManager.h"
#include "engine/VexaAddToBatchController.h"
#include "engine/outlets.h"
#include "engine/transport_state.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"
#include "timecode/timecode.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

namespace vexa {

/// Which items a batch run stripes; also the tags of the radio cells.
inline constexpr std::uint64_t batchModeAll = 0;
inline constexpr std::uint64_t batchModeSelected = 1;

/// The application's one controller: the settings, the transport and its clock, and every command
/// of the operator. It sees the window, or whatever stands in its place, through its outlets.
/// Main thread only. The name of the file that holds an operation stands above its group.
class Vexa_RemoteAppDelegate : public QObject {
    Q_OBJECT

public:
    /// The run loop must outlive this.
    Vexa_RemoteAppDelegate(const Outlets& outlets, RunLoop& runLoop);
    ~Vexa_RemoteAppDelegate() override;

    // start_up.cpp
    /// Brings everything into its first state; call once, when the outlets are ready.
    void applicationDidFinishLaunching();

    // control_enabling.cpp
    /// Fits the batch controls to the list and the selected rows; without rows, batch striping
    /// goes off and none of them can be used.
    void handleBatchControlEnabling();
    /// Shows the frame rate. FSK carries none: with it, no rate can be chosen and none shows.
    void handleFrameRateEnabling();

    // transport.cpp
    void handleTransportButtons();
    /// Any code: 1 starts a run, 0 and 2 end or interrupt it, others are only noted.
    void setTransportState(std::uint64_t state);
    /// Shows a state that the program entered by itself.
    void setTransportButton(std::uint64_t tag);
    void saveCurrentSettings();
    /// Back to the settings last saved, or to zeros when none were since launch.
    void restoreCurrentSettings();

    // settings.cpp
    /// Takes any code; announces it by vexaratechg() while the transport is stopped.
    void setFrameRate(std::uint64_t code);
    void setFrameAndSyncFromDefaults();

    // settings_edits.cpp: each edit can be undone, also one that changes nothing
    void handleStartTimeButton();
    void handleStopTimeButton();
    /// A time was entered in a display. Keeps the stop time after the start time, by five
    /// seconds where it was not.
    void timeChanged(TimecodeDisplay& sender);
    void handleStopTimeCheck();
    void handleFrameRateRadios();
    void handleFrameRateMenuItems(std::uint64_t tag);
    void handleSyncTypeRadios();
    void handleSyncTypeMenuItems(std::uint64_t tag);
    void setStartTime(std::uint64_t start, std::uint64_t stop, const QString& actionName);
    void setStopTime(std::uint64_t stop, bool flag, const QString& actionName);
    void setStopTimeSet(bool flag, std::uint64_t stopTime, const QString& actionName);
    void undoRedoSetFrameRate(std::uint64_t code, const QString& actionName);
    void undoRedoSetSyncType(std::uint64_t code, const QString& actionName);
    void undo() { m_undoManager.undo(); }
    void redo() { m_undoManager.redo(); }

    // batch_editing.cpp: each edit can be undone, but for the menu's choice of the mode
    /// Opens the panel for a new item of the current settings, where a stop time is set.
    void handleAddToBatchListButton();
    void handleRemoveFromBatchListButton();
    /// The delete key was pressed in the table.
    void handleDeleteRows() { handleRemoveFromBatchListButton(); }
    void handleBatchCheck();
    /// Choosing what to stripe turns batch striping on; undoing the choice leaves it on.
    void handleBatchRadios();
    /// Any tag; those without a meaning do nothing.
    void handleBatchListMenuItems(std::uint64_t tag);
    /// A row was clicked, which by itself does nothing.
    void handleBatchTableEdit() {}
    void tableViewSelectionDidChange() { handleBatchControlEnabling(); }
    void addItemToBatchList(std::uint64_t reel, const QString& title, std::uint64_t start,
                            std::uint64_t stop, std::uint64_t rate, std::uint64_t type);
    void addItemToBatchList(const BatchItemRef& item, const QString& actionName);
    void removeItemFromBatchList(const BatchItemRef& item, const QString& actionName);
    /// Puts the items back while undoing, and deletes the rows otherwise.
    void undoRedoRemoveFromBatchList(const BatchItems& items, const RowIndexes& rows,
                                     const QString& actionName);
    void undoRedoUseBatchStriping(bool useBatch, const QString& actionName);
    void undoRedoBatchMode(std::uint64_t mode, const QString& actionName);

    // menu_commands.cpp
    void handleStripeMenuItems(std::uint64_t tag);
    void handleSetStopTimeMenu();
    void handlePrefsMenu();

    // document_commands.cpp
    void newDocument();
    void openDocument();
    void saveDocument();
    void saveDocumentAs();
    void revertDocumentToSaved();
    /// A file that the desktop or the command line hands over. True also when nothing was opened,
    /// as while striping.
    bool openFile(const QString& path);
    /// Whether the window may close: asks to save a changed list first.
    bool windowShouldClose();
    /// Whether to go ahead with what would lose changes; asks when there are any.
    bool saveFirst();
    bool askRevert();
    void openListWithURL(const QString& path);
    void saveDocumentWithURL(const QString& path);
    /// Names the list in the window's title after its file, up to the name's first full stop.
    void setListTitle();

    // user_defaults.cpp
    bool readPrefs();
    void writePrefs();

    void setUseBatch(bool useBatch) { m_useBatch = useBatch; }
    void setBatchMode(std::uint64_t mode) { m_batchMode = mode; }
    void setDelayInSeconds(double delay) { m_delayInSeconds = delay; }
    void setPauseForReelChange(bool pause) { m_pauseForReelChange = pause; }
    void setDefaultFrameRate(std::uint64_t code) { m_defaultFrameRate = code; }
    void setDefaultSyncType(std::uint64_t code) { m_defaultSyncType = code; }

    // The state. Times are packed timecodes.
    std::uint64_t transportState() const { return m_transportState; }
    std::uint64_t prevTransportState() const { return m_prevTransportState; }
    std::uint64_t startTime() const { return m_startTime; }
    std::uint64_t stopTime() const { return m_stopTime; }
    bool stopTimeSet() const { return m_stopTimeSet; }
    std::uint64_t currentTime() const { return m_currentTime; }
    std::uint64_t currentStopTime() const { return m_currentStopTime; }
    std::uint64_t frameRate() const { return m_frameRate; }
    double frameCount() const { return frameRateForCode(m_frameRate).frameCount; }
    double frameInterval() const { return frameRateForCode(m_frameRate).frameInterval; }
    std::uint64_t syncType() const { return m_syncType; }
    bool useBatch() const { return m_useBatch; }
    /// As it was before the last click on the batch radios.
    bool previousUseBatch() const { return m_previousUseBatch; }
    std::uint64_t batchMode() const { return m_batchMode; }
    std::uint64_t itemsToStripe() const { return m_itemsToStripe; }
    std::uint64_t currentStripeItem() const { return m_currentStripeItem; }
    std::uint64_t currentReel() const { return m_currentReel; }
    bool waitingForReelChange() const { return m_waitingForReelChange; }
    VexaBatchStripeData& batchStripeData() const { return *m_batchStripeData; }
    bool dirty() const { return m_dirty; }
    bool previouslySaved() const { return m_previouslySaved; }
    const QString& url() const { return m_url; }
    const QString& fileTitle() const { return m_fileTitle; }
    double delayInSeconds() const { return m_delayInSeconds; }
    bool pauseForReelChange() const { return m_pauseForReelChange; }
    std::uint64_t defaultFrameRate() const { return m_defaultFrameRate; }
    std::uint64_t defaultSyncType() const { return m_defaultSyncType; }
    const Outlets& outlets() const { return m_outlets; }
    UndoManager& undoManager() { return m_undoManager; }
    const UndoManager& undoManager() const { return m_undoManager; }

Q_SIGNALS:
    /// The frame rate was set while the transport is stopped: shown times follow it.
    void vexaratechg();
    /// Something changed on which it depends what can be done now.
    void stateChanged();

private:
    // transport.cpp
    void startPlay();
    void startTimer();
    void stopTimer();
    void timerFireMethod();
    void sendSetupAndStart();
    void showSettings(std::uint64_t start, std::uint64_t stop);

    // batch_run.cpp
    void startBatchRun();
    void countItemsToStripe();
    void takeUpItem(const BatchItemRef& item);
    void showItem(const BatchItemRef& item);
    void startBatchPause();
    void endBatchPause();
    /// Returns when the operator has loaded the reel; false when the run is to end instead.
    bool changeReel(std::int64_t reel);
    void leaveItem(StripeMark mark);
    void startBlink();
    void blink();
    void stopBlink();

    // batch_editing.cpp
    /// Makes the change and shows it. Rows that stay in the list stay selected.
    void changeBatchList(const std::function<void()>& change);
    void registerRemoval(BatchItems items, const RowIndexes& rows, const QString& actionName);

    // document_commands.cpp
    int askToSave();

    // settings_edits.cpp
    void pushStopTimePastStart();
    void registerEdit(const QString& actionName, std::function<void(const QString&)> inverse);

    Outlets m_outlets;
    RunLoop& m_runLoop;
    UndoManager m_undoManager;
    VexaAddToBatchController m_addToBatchController;

    std::uint64_t m_transportState = transport::stopped;
    std::uint64_t m_prevTransportState = transport::stopped;
    std::uint64_t m_startTime = 0;
    std::uint64_t m_stopTime = 0;
    bool m_stopTimeSet = false;
    bool m_prevStopTimeSet = false; ///< the flag before the edit in progress
    std::uint64_t m_currentTime = 0;
    std::uint64_t m_currentStopTime = 0;
    std::uint64_t m_frameRate = 0;
    std::uint64_t m_syncType = 0;
    std::uint64_t m_savedStartTime = 0;
    std::uint64_t m_savedStopTime = 0;
    std::uint64_t m_savedFrameRate = 0;
    std::uint64_t m_savedSyncType = 0;

    std::unique_ptr<VexaBatchStripeData> m_batchStripeData;
    bool m_useBatch = false;
    bool m_previousUseBatch = false;
    std::uint64_t m_batchMode = batchModeAll;
    std::uint64_t m_itemsToStripe = 0;
    std::uint64_t m_currentStripeItem = 0;
    std::uint64_t m_currentReel = 0;
    BatchItemRef m_itemUnderWay; ///< null between the items of a run, and when there is no run
    bool m_waitingForReelChange = false;
    bool m_blinkState = false;
    bool m_dirty = false;           ///< the list has changed since it was opened, saved or cleared
    bool m_previouslySaved = false; ///< the list is tied to a file
    QString m_url;                  ///< the list's file; null when it has none
    QString m_fileTitle;

    std::unique_ptr<RunLoopTimer> m_mainTimer;
    std::unique_ptr<RunLoopTimer> m_pauseTimer;
    std::unique_ptr<RunLoopTimer> m_blinkTimer;

    double m_delayInSeconds = 0;
    bool m_pauseForReelChange = false;
    std::uint64_t m_defaultFrameRate = 0;
    std::uint64_t m_defaultSyncType = 0;
};

} // namespace vexa
