#pragma once

#include "controls/VexaPrefsController.h"

#include <optional>

namespace vexa {

/// The preferences panel, built on first use: most launches never show it, and need not wait for
/// it.
class PreferencesOnDemand final : public PrefsPanel {
public:
    explicit PreferencesOnDemand(QWidget& window) : m_window(window) {}

    /// Call before the panel is first shown; both must outlive this.
    void setOwner(Vexa_RemoteAppDelegate& owner, Vexa_MIDI_Manager& midiManager) {
        m_owner = &owner;
        m_midiManager = &midiManager;
    }

    void showPreferences() override {
        if (!m_panel)
            m_panel.emplace(m_window, *m_owner, *m_midiManager);
        m_panel->showPreferences();
    }

private:
    QWidget& m_window;
    Vexa_RemoteAppDelegate* m_owner = nullptr;
    Vexa_MIDI_Manager* m_midiManager = nullptr;
    std::optional<VexaPrefsController> m_panel;
};

} // namespace vexa
