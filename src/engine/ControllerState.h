#pragma once

#include "batch/VexaBatchStripeData.h"
#include "document/ListDocument.h"
#include "engine/MidiGeneratorLink.h"
#include "engine/UndoManager.h"
#include "engine/outlets.h"
#include "stripe/StripePlan.h"
#include "stripe/StripeRun.h"
#include "stripe/transport_state.h"
#include "timecode/frame_rate.h"

#include <QString>

#include <cstdint>

namespace vexa {

/// What the controller holds and acts on: the list and its file, the operator's settings, the run
/// and the undo manager. Times are packed timecodes. Main thread only.
class ControllerState {
public:
    std::uint64_t transportState() const { return m_transportState; }
    std::uint64_t prevTransportState() const { return m_prevTransportState; }
    std::uint64_t startTime() const { return m_plan.settings.startTime; }
    std::uint64_t stopTime() const { return m_plan.settings.stopTime; }
    bool stopTimeSet() const { return m_plan.stopTimeSet; }
    std::uint64_t currentTime() const { return m_run.currentTime(); }
    std::uint64_t currentStopTime() const { return m_run.progress().currentStop; }
    std::uint64_t frameRate() const { return m_plan.settings.frameRate; }
    double frameCount() const { return frameRateForCode(frameRate()).frameCount; }
    double frameInterval() const { return frameRateForCode(frameRate()).frameInterval; }
    std::uint64_t syncType() const { return m_plan.settings.syncType; }
    bool useBatch() const { return m_plan.useBatch; }
    /// The value of useBatch() before the last click on the batch radios.
    bool previousUseBatch() const { return m_previousUseBatch; }
    std::uint64_t batchMode() const { return m_plan.batchMode; }
    std::uint64_t itemsToStripe() const { return m_run.progress().itemsToStripe; }
    /// Always 0: each item of a run counts as the first.
    std::uint64_t currentStripeItem() const { return 0; }
    std::uint64_t currentReel() const { return m_run.progress().reel; }
    bool waitingForReelChange() const { return m_run.progress().phase == Phase::awaitingReel; }
    VexaBatchStripeData& batchStripeData() { return m_batchStripeData; }
    const VexaBatchStripeData& batchStripeData() const { return m_batchStripeData; }
    bool dirty() const { return m_document.dirty(); }
    bool previouslySaved() const { return m_document.previouslySaved(); }
    const QString& url() const { return m_document.url(); }
    const QString& fileTitle() const { return m_document.fileTitle(); }
    FileTrouble fileTrouble() const { return m_document.fileTrouble(); }
    double delayInSeconds() const { return m_plan.delayInSeconds; }
    bool pauseForReelChange() const { return m_plan.pauseForReelChange; }
    std::uint64_t defaultFrameRate() const { return m_defaultFrameRate; }
    std::uint64_t defaultSyncType() const { return m_defaultSyncType; }
    const Outlets& outlets() const { return m_outlets; }
    UndoManager& undoManager() { return m_undoManager; }
    const UndoManager& undoManager() const { return m_undoManager; }
    /// The run, for observers of its signals and progress.
    const StripeRun& run() const { return m_run; }

    void setUseBatch(bool useBatch) { m_plan.useBatch = useBatch; }
    void setBatchMode(std::uint64_t mode) { m_plan.batchMode = mode; }
    void setDelayInSeconds(double delay) { m_plan.delayInSeconds = delay; }
    void setPauseForReelChange(bool pause) { m_plan.pauseForReelChange = pause; }
    void setDefaultFrameRate(std::uint64_t code) { m_defaultFrameRate = code; }
    void setDefaultSyncType(std::uint64_t code) { m_defaultSyncType = code; }

protected:
    ControllerState(Vexa_RemoteAppDelegate* controller, const Outlets& outlets, RunLoop& runLoop)
        : m_outlets(outlets),
          m_batchStripeData(controller),
          m_run(runLoop, m_batchStripeData, m_link, m_plan) {}
    ~ControllerState() = default;

    const Outlets m_outlets;
    UndoManager m_undoManager;
    VexaBatchStripeData m_batchStripeData;
    ListDocument m_document{m_batchStripeData};
    StripePlan m_plan;
    MidiGeneratorLink m_link;
    StripeRun m_run;
    std::uint64_t m_transportState = transport::stopped;
    std::uint64_t m_prevTransportState = transport::stopped;
    bool m_previousUseBatch = false;
    std::uint64_t m_defaultFrameRate = 0;
    std::uint64_t m_defaultSyncType = 0;
};

} // namespace vexa
