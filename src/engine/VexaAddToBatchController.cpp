#include "engine/VexaAddToBatchController.h"

#include "engine/Vexa_RemoteAppDelegate.h"

namespace vexa {

void VexaAddToBatchController::showAddToBatchPanelWithStart(std::uint64_t start, std::uint64_t stop,
                                                            std::uint64_t rate,
                                                            std::uint64_t type) {
    m_addToPanel.setReel(unpack(static_cast<PackedTimecode>(start)).hours);
    m_addToPanel.setTitlePlaceholder(QStringLiteral("title here"));
    if (m_addToPanel.runModal() != panelConfirmed)
        return;
    const auto title = m_addToPanel.title();
    m_owner.addItemToBatchList(m_addToPanel.reel(),
                               title.isEmpty() ? QStringLiteral("untitled") : title, start, stop,
                               rate, type);
}

} // namespace vexa
