#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vexa {

// The panels that the controller opens, each modal to the window.

/// Asks for the reel and the title of a new item of the list.
class AddToPanel {
public:
    virtual ~AddToPanel() = default;
    virtual void setReel(std::uint64_t reel) = 0;
    /// 0 if the field holds no number.
    virtual std::uint64_t reel() const = 0;
    /// The title is kept from one showing to the next.
    virtual QString title() const = 0;
    virtual void setTitlePlaceholder(const QString& text) = 0;
    /// Shows the modal panel and returns one of the codes below when it closes.
    virtual int runModal() = 0;
};

inline constexpr int panelCancelled = 0;
inline constexpr int panelConfirmed = 1;

/// A question with buttons; the first is the default.
struct Alert {
    QString message;
    QString information;
    std::vector<QString> buttons;
    /// The operator did not ask for the alert, and may be away or typing.
    bool comesUnasked = false;
};

/// Results of an alert, one per button in order; 0 if it closed without an answer, as when the
/// program is asked to quit.
inline constexpr int alertUnanswered = 0;
inline constexpr int alertFirstButton = 1000;
inline constexpr int alertSecondButton = 1001;
inline constexpr int alertThirdButton = 1002;

/// Shows the alert and returns the operator's answer.
class Alerts {
public:
    virtual ~Alerts() = default;
    virtual int runModal(const Alert& alert) = 0;
};

/// Lets the operator choose a batch list file. Returns nothing when cancelled.
class FilePanels {
public:
    virtual ~FilePanels() = default;
    virtual std::optional<QString> runOpenPanel() = 0;
    /// name: the file name that the panel proposes.
    virtual std::optional<QString> runSavePanel(const QString& name) = 0;
};

/// The recent files, in the menu and on the desktop.
class RecentDocuments {
public:
    virtual ~RecentDocuments() = default;
    virtual void noteNewRecentDocument(const QString& path) = 0;
};

/// Lets the operator change the preferences.
class PrefsPanel {
public:
    virtual ~PrefsPanel() = default;
    /// Returns when the panel is closed and any confirmed changes are in effect.
    virtual void showPreferences() = 0;
};

} // namespace vexa
