#pragma once

#include "controls/VexaPrefsController.h"

#include <optional>

namespace vexa {

/// The preferences panel, built when it is first asked for: most launches never show it, and every
/// one would wait for it.
class PreferencesOnDemand final : public PrefsPanel {
public:
    explicit PreferencesOnDemand(QWidget& window) : m_window(window) {}

    /// Call before the panel is first shown; the owner must outlive this.
    void setOwner(Vexa_RemoteAppDelegate& owner) { m_owner = &owner; }

    void showPreferences() override {
        if (!m_panel) {
            m_panel.emplace(m_window);
            m_panel->setOwner(*m_owner);
        }
        m_panel->showPreferences();
    }

private:
    QWidget& m_window;
    Vexa_RemoteAppDelegate* m_owner = nullptr;
    std::optional<VexaPrefsController> m_panel;
};

} // namespace vexa
