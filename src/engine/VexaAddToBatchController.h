#pragma once

namespace vexa {

class AddToPanel;
class Vexa_RemoteAppDelegate;
struct StripeSettings;

/// Asks for the reel and the title of a new batch item, whose other fields are given.
class VexaAddToBatchController {
public:
    /// Both must outlive this.
    VexaAddToBatchController(Vexa_RemoteAppDelegate& owner, AddToPanel& addToPanel)
        : m_owner(owner), m_addToPanel(addToPanel) {}

    /// Shows the panel and returns when it is closed. A confirmed item goes to the owner, as
    /// "untitled" when it was given no title. The hours of the start time are proposed as the reel.
    void showAddToBatchPanelWithStart(const StripeSettings& settings);

private:
    Vexa_RemoteAppDelegate& m_owner;
    AddToPanel& m_addToPanel;
};

} // namespace vexa
