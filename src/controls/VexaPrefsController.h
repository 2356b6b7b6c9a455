#pragma once

#include "engine/outlets.h"
#include "midi/MidiSystem.h"

#include <QDialog>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QComboBox;

namespace Ui {
class PreferencesPanel;
}

namespace vexa {

class Vexa_MIDI_Manager;
class Vexa_RemoteAppDelegate;

/// The preferences panel. While shown, its list of MIDI destinations follows the connected devices.
/// The operator's choice stays with its device, and nothing is selected while that is disconnected.
class VexaPrefsController final : public PrefsPanel {
public:
    /// The panel opens over the window. The owner holds the settings, the manager the chosen
    /// destination. All must outlive this.
    VexaPrefsController(QWidget& window, Vexa_RemoteAppDelegate& owner,
                        Vexa_MIDI_Manager& midiManager);
    ~VexaPrefsController() override;

    /// Fills the panel from the owner and the MIDI manager. On OK, applies and stores the settings,
    /// changed or not. Timers and messages continue meanwhile.
    void showPreferences() override;

    /// Marks only the items with that tag, and selects one. If there is none, the selection stays.
    static void preparePopup(QComboBox& popup, std::int64_t selectedItemTag);
    /// One item per name, in order. An index out of range selects none.
    static void updateMidiPortPopup(QComboBox& popup, const std::vector<std::string>& list,
                                    std::int32_t selectedItem);

    /// One of the delay's controls has changed; updates the other.
    void handlePrefControls(int senderTag);
    void handleTableEdit() {}
    /// Does nothing while a reel is awaited: the settings would take effect after the next item has
    /// started, and silence it.
    void okPrefsWindow();
    void cancelPrefsWindow() { m_prefsPanel.done(QDialog::Rejected); }

private:
    void fillPanel();
    void apply();
    void followDestinations();
    std::int32_t indexOfChoice() const;
    std::int64_t delayFieldValue() const;

    QDialog m_prefsPanel;
    std::unique_ptr<Ui::PreferencesPanel> m_ui;
    Vexa_RemoteAppDelegate& m_owner;
    Vexa_MIDI_Manager& m_midiManager;
    std::vector<std::string> m_names; ///< of the destinations in the list
    std::vector<MidiUniqueId> m_ids;  ///< of the same
    /// The selected destination or, while none is selected, the one selected last.
    std::optional<MidiUniqueId> m_choice;
};

} // namespace vexa
