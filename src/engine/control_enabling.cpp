#include "batch/VexaBatchStripeData.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/sync_type.h"

namespace vexa {

void Vexa_RemoteAppDelegate::handleBatchControlEnabling() {
    fitBatchControls();
    Q_EMIT stateChanged();
}

void Vexa_RemoteAppDelegate::fitBatchControls() {
    const bool rowsSelected = m_outlets.batchTable->hasSelectedRows();
    const bool rows = m_batchStripeData.numItems() != 0;
    m_outlets.removeFromBatchButton->setHidden(!rowsSelected);
    m_outlets.batchRadios->setMatrixEnabled(rowsSelected || rows);
    m_outlets.batchRadios->setCellEnabled(batchModeSelected, rowsSelected);
    m_outlets.batchCheck->setEnabled(rowsSelected || rows);
    if (!rowsSelected) {
        m_plan.batchMode = batchModeAll;
        m_outlets.batchRadios->selectCellWithTag(batchModeAll);
    }
    if (!rowsSelected && !rows) {
        m_plan.useBatch = false;
        m_outlets.batchCheck->setState(false);
    }
}

void Vexa_RemoteAppDelegate::handleFrameRateEnabling() {
    if (syncType() == sync::fsk) {
        m_outlets.frameRateMatrix->switchSelectedCellOff();
        m_outlets.frameRateMatrix->setMatrixEnabled(false);
    } else {
        m_outlets.frameRateMatrix->setMatrixEnabled(true);
        m_outlets.frameRateMatrix->selectCellWithTag(frameRate());
    }
}

} // namespace vexa
