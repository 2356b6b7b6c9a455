#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vexa {

// What the controller asks the operator by, each by itself over the window.

/// Asks for the reel and the title of a new item of the list.
class AddToPanel {
public:
    virtual ~AddToPanel() = default;
    virtual void setReel(std::uint64_t reel) = 0;
    /// 0 when what stands in the field is no number.
    virtual std::uint64_t reel() const = 0;
    /// The title stays from one time to the next.
    virtual QString title() const = 0;
    virtual void setTitlePlaceholder(const QString& text) = 0;
    /// Shows the panel over all else; returns one of the codes below when it has been closed.
    virtual int runModal() = 0;
};

inline constexpr int panelCancelled = 0;
inline constexpr int panelConfirmed = 1;

/// A question with buttons; the first is the default.
struct Alert {
    QString message;
    QString information;
    std::vector<QString> buttons;
    /// The operator did not ask for it, and may be at the machine or in the middle of typing.
    bool comesUnasked = false;
};

/// What an alert ends with: this for its first button, one more for each further one; 0 when it
/// was taken down without an answer, as when the program is told to end.
inline constexpr int alertUnanswered = 0;
inline constexpr int alertFirstButton = 1000;
inline constexpr int alertSecondButton = 1001;
inline constexpr int alertThirdButton = 1002;

/// Asks the operator and returns when answered.
class Alerts {
public:
    virtual ~Alerts() = default;
    virtual int runModal(const Alert& alert) = 0;
};

/// Lets the operator choose a batch list file, and returns when chosen. Nothing when cancelled.
class FilePanels {
public:
    virtual ~FilePanels() = default;
    virtual std::optional<QString> runOpenPanel() = 0;
    /// name: what the panel proposes.
    virtual std::optional<QString> runSavePanel(const QString& name) = 0;
};

/// The files that were opened last, in the menu and on the desktop.
class RecentDocuments {
public:
    virtual ~RecentDocuments() = default;
    virtual void noteNewRecentDocument(const QString& path) = 0;
};

/// Lets the operator change the preferences.
class PrefsPanel {
public:
    virtual ~PrefsPanel() = default;
    /// Returns when the panel has been closed, and what was confirmed there is in force.
    virtual void showPreferences() = 0;
};

} // namespace vexa
