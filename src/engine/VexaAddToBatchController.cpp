#include "engine/VexaAddToBatchController.h"

#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/timecode.h"

namespace vexa {

void VexaAddToBatchController::showAddToBatchPanelWithStart(const StripeSettings& settings) {
    showAddToBatchPanel(settings, unpack(static_cast<PackedTimecode>(settings.startTime)).hours);
}

void VexaAddToBatchController::showAddToBatchPanel(const StripeSettings& settings,
                                                   std::uint64_t reel) {
    m_addToPanel.setReel(reel);
    m_addToPanel.setTitlePlaceholder(QStringLiteral("title here"));
    if (m_addToPanel.runModal() != panelConfirmed)
        return;
    const auto title = m_addToPanel.title();
    m_owner.addItemToBatchList(m_addToPanel.reel(),
                               title.isEmpty() ? QStringLiteral("untitled") : title, settings);
}

} // namespace vexa
