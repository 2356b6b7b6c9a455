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

/// The preferences panel. While it is shown, its list of MIDI destinations follows what is plugged
/// in; the operator's choice stays with its device, and is none while that is away.
class VexaPrefsController final : public PrefsPanel {
public:
    /// The panel stands over the window. The settings live in the owner, the choice of the
    /// destination in the manager. All of them must outlive this.
    VexaPrefsController(QWidget& window, Vexa_RemoteAppDelegate& owner,
                        Vexa_MIDI_Manager& midiManager);
    ~VexaPrefsController() override;

    /// Fills the panel from the owner and the MIDI manager, and applies and stores what the
    /// operator confirms, changed or not. Timers and messages go on meanwhile.
    void showPreferences() override;

    /// Marks the items with that tag, and no others, and selects the one; with no such item, the
    /// selection stays as it was.
    static void preparePopup(QComboBox& popup, std::int64_t selectedItemTag);
    /// One item per name, in order. An index of no item selects none.
    static void updateMidiPortPopup(QComboBox& popup, const std::vector<std::string>& list,
                                    std::int32_t selectedItem);

    /// One of the delay's controls was changed, and the other follows it.
    void handlePrefControls(int senderTag);
    void handleTableEdit() {}
    /// Does nothing while a reel is asked for: what is confirmed would come into force after the
    /// next item has started, and silence it.
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
    /// The destination that is selected or, while there is none, was selected last.
    std::optional<MidiUniqueId> m_choice;
};

} // namespace vexa
