#include "controls/commands.h"

#include "controls/VexaHelpController.h"
#include "controls/VexaTimecodeButton.h"
#include "controls/about_box.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/sync_type.h"

namespace vexa {

namespace {

using To = const CommandTargets;
using Tag = std::uint64_t;

const QList<QKeySequence> noKeys;

QList<QKeySequence> key(const QKeySequence& sequence) { return {sequence}; }

/// The usual shortcut, which the menu shows, and what the desktop has for the command besides.
QList<QKeySequence> keys(QKeySequence::StandardKey standard, const QKeySequence& usual) {
    auto bindings = QKeySequence::keyBindings(standard);
    bindings.removeAll(usual);
    bindings.prepend(usual);
    return bindings;
}

void frameRate(To& to, Tag tag) { to.controller.handleFrameRateMenuItems(tag); }
void syncType(To& to, Tag tag) { to.controller.handleSyncTypeMenuItems(tag); }
void stripe(To& to, Tag tag) { to.controller.handleStripeMenuItems(tag); }
void batch(To& to, Tag tag) { to.controller.handleBatchListMenuItems(tag); }

/// Begins the typing of a time: the next digit is the first, also where digits stand already.
void type(VexaTimecodeButton* display) {
    display->setFocus(Qt::ShortcutFocusReason);
    if (display->isChecked())
        display->beginAfresh();
    else
        display->click();
}

/// A display of times, by the name that it has as an outlet.
VexaTimecodeButton* display(To& to, const char* name) {
    return to.window.findChild<VexaTimecodeButton*>(QLatin1String(name));
}

} // namespace

const std::vector<Command>& commands() {
    using enum MenuAction;
    using std::nullopt;
    static const std::vector<Command> table{
        {"&File", newDocument, 0, "&New", keys(QKeySequence::New, Qt::CTRL | Qt::Key_N),
         [](To& to, Tag) { to.controller.newDocument(); }},
        {"&File", openDocument, 0, "&Open…", keys(QKeySequence::Open, Qt::CTRL | Qt::Key_O),
         [](To& to, Tag) { to.controller.openDocument(); }},
        {"&File", other, unavailableWhileStriping, "Open Re&cent", noKeys, nullptr},
        {"&File-", saveDocument, 0, "&Save", keys(QKeySequence::Save, Qt::CTRL | Qt::Key_S),
         [](To& to, Tag) { to.controller.saveDocument(); }},
        {"&File", saveDocumentAs, 0, "Save &As…",
         keys(QKeySequence::SaveAs, Qt::CTRL | Qt::SHIFT | Qt::Key_S),
         [](To& to, Tag) { to.controller.saveDocumentAs(); }},
        {"&File", revertDocumentToSaved, 0, "&Revert to Saved", noKeys,
         [](To& to, Tag) { to.controller.revertDocumentToSaved(); }},
        {"&File-", nullopt, 0, "&Quit", keys(QKeySequence::Quit, Qt::CTRL | Qt::Key_Q),
         [](To& to, Tag) { to.window.close(); }},
        {"&Edit", undo, 0, "Undo", keys(QKeySequence::Undo, Qt::CTRL | Qt::Key_Z),
         [](To& to, Tag) { to.controller.undo(); }},
        {"&Edit", redo, 0, "Redo", keys(QKeySequence::Redo, Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
         [](To& to, Tag) { to.controller.redo(); }},
        {"&Edit-", handlePrefsMenu, 0, "&Preferences…",
         keys(QKeySequence::Preferences, Qt::CTRL | Qt::Key_Comma),
         [](To& to, Tag) { to.controller.handlePrefsMenu(); }},
        {"&Timecode", handleFrameRateMenuItems, rate::fps24, "2&4 fps", noKeys, frameRate},
        {"&Timecode", handleFrameRateMenuItems, rate::fps25, "2&5 fps", noKeys, frameRate},
        {"&Timecode", handleFrameRateMenuItems, rate::fps30, "&30 fps", noKeys, frameRate},
        {"&Timecode", handleFrameRateMenuItems, rate::fps30Drop, "30 &df", noKeys, frameRate},
        {"&Timecode-", handleSyncTypeMenuItems, sync::mtc, "&MTC", noKeys, syncType},
        {"&Timecode", handleSyncTypeMenuItems, sync::dtl, "DT&L", noKeys, syncType},
        {"&Timecode", handleSyncTypeMenuItems, sync::fsk, "&FSK", noKeys, syncType},
        {"&Timecode-", handleSetStopTimeMenu, 0, "Set Stop Time", key(Qt::Key_F8),
         [](To& to, Tag) { to.controller.handleSetStopTimeMenu(); }},
        {"&Timecode-", nullopt, 0, "Type St&art Time", key(Qt::Key_F3),
         [](To& to, Tag) { type(display(to, "startTimeButton")); }},
        {"&Timecode", nullopt, 0, "Type St&op Time", key(Qt::Key_F4),
         [](To& to, Tag) { type(display(to, "endTimeButton")); }},
        {"&Stripe", handleStripeMenuItems, transport::stopped, "&Stop", key(Qt::Key_F5), stripe},
        {"&Stripe", handleStripeMenuItems, transport::playing, "&Play", key(Qt::Key_F6), stripe},
        {"&Stripe", handleStripeMenuItems, transport::paused, "P&ause", key(Qt::Key_F7), stripe},
        {"&Batch List", handleBatchListMenuItems, batch_menu::useBatch, "Turn On Batch Striping",
         key(Qt::CTRL | Qt::Key_B), batch},
        {"&Batch List-", handleBatchListMenuItems, batch_menu::all, "Stripe &All Items", noKeys,
         batch},
        {"&Batch List", handleBatchListMenuItems, batch_menu::selected, "Stripe &Selected Items",
         noKeys, batch},
        {"&Batch List-", handleBatchListMenuItems, batch_menu::add, "Add to Batch &List…",
         key(Qt::Key_F9), batch},
        {"&Help", nullopt, 0, "&User Guide", keys(QKeySequence::HelpContents, Qt::Key_F1),
         [](To& to, Tag) { to.help.openUserGuide(); }},
        {"&Help-", nullopt, 0, "&About", noKeys, [](To& to, Tag) { showAboutBox(to.window); }},
    };
    return table;
}

} // namespace vexa
