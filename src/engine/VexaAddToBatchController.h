#pragma once

#include <cstdint>

namespace vexa {

class AddToPanel;
class Vexa_RemoteAppDelegate;
struct StripeSettings;

/// Asks for the reel and the title of a new batch item; the caller gives its other fields.
class VexaAddToBatchController {
public:
    /// Both must outlive this.
    VexaAddToBatchController(Vexa_RemoteAppDelegate& owner, AddToPanel& addToPanel)
        : m_owner(owner), m_addToPanel(addToPanel) {}

    /// Shows the panel until it is closed, and adds a confirmed item to the owner's list. An item
    /// without a title becomes "untitled". The panel proposes the hours of the start time as reel.
    void showAddToBatchPanelWithStart(const StripeSettings& settings);
    /// The same, with another reel proposed.
    void showAddToBatchPanel(const StripeSettings& settings, std::uint64_t reel);

private:
    Vexa_RemoteAppDelegate& m_owner;
    AddToPanel& m_addToPanel;
};

} // namespace vexa
