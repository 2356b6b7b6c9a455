#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/timecode.h"

namespace vexa {

namespace {

constexpr Timecode firstStartTime{1, 0, 0, 0};

} // namespace

Vexa_RemoteAppDelegate::Vexa_RemoteAppDelegate(const Outlets& outlets, RunLoop& runLoop)
    : ControllerState(this, outlets, runLoop),
      m_addToBatchController(*this, *outlets.addToPanel),
      m_display(outlets, runLoop, m_run) {
    connectRun();
    connect(&m_undoManager, &UndoManager::changed, this, &Vexa_RemoteAppDelegate::stateChanged);
}

Vexa_RemoteAppDelegate::~Vexa_RemoteAppDelegate() = default;

void Vexa_RemoteAppDelegate::applicationDidFinishLaunching() {
    setTransportState(transport::stopped);
    setFrameRate(rate::fps30);
    m_plan.settings.startTime = pack(firstStartTime);
    m_outlets.startTimeButton->setBcdValue(startTime());
    m_plan.settings.stopTime = 0;
    m_outlets.endTimeButton->setBcdValue(stopTime());
    readPrefs();
    setListTitle();

    m_outlets.batchTable->setColumnIdentifiers({item_key::reel, item_key::title, item_key::start,
                                                item_key::stop, item_key::rate, item_key::type});
    setFrameRate(m_defaultFrameRate);
    m_plan.settings.syncType = m_defaultSyncType;
    m_outlets.syncTypeMatrix->selectCellWithTag(m_defaultSyncType);
    handleFrameRateEnabling();
    m_outlets.batchTable->installHeader();
    m_outlets.batchTable->setIntercellSpacing(5.0, 2.0);

    m_outlets.addToBatchButton->setToolTip(QStringLiteral("Add to Batch Stripe List"));
    m_outlets.removeFromBatchButton->setToolTip(
        QStringLiteral("Remove Selected Items from Batch Stripe List"));
    m_outlets.stopTimeCheck->setToolTip(
        QStringLiteral("Set a striping stop time-\n\n"
                       "If Off, striping continues until the Stop or Pause button is pressed.\n\n"
                       "If On, striping stops when the timecode reaches the Stop time"));
}

} // namespace vexa
