#include "controls/commands.h"

#include "controls/RowActions.h"
#include "controls/VexaHelpController.h"
#include "controls/VexaTimecodeButton.h"
#include "controls/ViewSwitches.h"
#include "controls/about_box.h"
#include "engine/Vexa_RemoteAppDelegate.h"
#include "timecode/frame_rate.h"
#include "timecode/sync_type.h"

namespace vexa {

namespace {

using To = const CommandTargets;
using Tag = std::uint64_t;

/// For items that their action alone identifies.
constexpr Tag noTag = 0;

QList<QKeySequence> key(const QKeySequence& sequence) { return {sequence}; }

/// The usual shortcut, which the menu shows, and the desktop's other shortcuts for the command.
QList<QKeySequence> keys(QKeySequence::StandardKey standard, const QKeySequence& usual) {
    auto bindings = QKeySequence::keyBindings(standard);
    bindings.removeAll(usual);
    bindings.prepend(usual);
    return bindings;
}

/// Starts typing a time: the next digit is the first, even if some were typed already.
void type(VexaTimecodeButton* display) {
    display->setFocus(Qt::ShortcutFocusReason);
    if (display->isChecked())
        display->beginAfresh();
    else
        display->click();
}

/// The time display with that outlet name.
VexaTimecodeButton* display(To& to, const char* name) {
    return to.window.findChild<VexaTimecodeButton*>(QLatin1String(name));
}

using enum MenuAction;

/// Commands that may ask to save first are marked as ones that may open a panel.
CommandGroup fileCommands() {
    return {"&File",
            {{newDocument, noTag, "&New", keys(QKeySequence::New, Qt::CTRL | Qt::Key_N), true,
              [](To& to, Tag) { to.controller.newDocument(); }},
             {openDocument, noTag, "&Open…", keys(QKeySequence::Open, Qt::CTRL | Qt::Key_O), true,
              [](To& to, Tag) { to.controller.openDocument(); }},
             {.action = other, .tag = unavailableWhileStriping, .title = "Open Re&cent"}}};
}

CommandGroup savingCommands() {
    return {"&File",
            {{saveDocument, noTag, "&Save", keys(QKeySequence::Save, Qt::CTRL | Qt::Key_S), true,
              [](To& to, Tag) { to.controller.saveDocument(); }},
             {saveDocumentAs, noTag, "Save &As…",
              keys(QKeySequence::SaveAs, Qt::CTRL | Qt::SHIFT | Qt::Key_S), true,
              [](To& to, Tag) { to.controller.saveDocumentAs(); }},
             {revertDocumentToSaved, noTag, "&Revert to Saved", {}, true, [](To& to, Tag) {
                  to.controller.revertDocumentToSaved();
              }}}};
}

CommandGroup undoCommands() {
    return {"&Edit",
            {{undo, noTag, "Undo", keys(QKeySequence::Undo, Qt::CTRL | Qt::Key_Z), false,
              [](To& to, Tag) { to.controller.undo(); }},
             {redo, noTag, "Redo", keys(QKeySequence::Redo, Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
              false, [](To& to, Tag) { to.controller.redo(); }}}};
}

CommandGroup frameRateCommands() {
    CommandGroup group{"&Timecode", {}, true};
    for (const auto& rate : frameRates) {
        const auto digit = static_cast<Qt::Key>(Qt::Key_1 + rate.code);
        group.commands.push_back(
            {handleFrameRateMenuItems, rate.code, rate.menuItem, key(Qt::CTRL | digit), false,
             [](To& to, Tag tag) { to.controller.handleFrameRateMenuItems(tag); }});
    }
    return group;
}

CommandGroup syncTypeCommands() {
    const auto choose = [](To& to, Tag tag) { to.controller.handleSyncTypeMenuItems(tag); };
    return {"&Timecode",
            {{handleSyncTypeMenuItems, sync::mtc, "&MTC", {}, false, choose},
             {handleSyncTypeMenuItems, sync::dtl, "DT&L", {}, false, choose},
             {handleSyncTypeMenuItems, sync::fsk, "&FSK", {}, false, choose}},
            true};
}

CommandGroup typingCommands() {
    return {"&Timecode",
            {{.title = "Type St&art Time",
              .shortcuts = key(Qt::Key_F3),
              .perform = [](To& to, Tag) { type(display(to, "startTimeButton")); }},
             {.title = "Type St&op Time", .shortcuts = key(Qt::Key_F4), .perform = [](To& to, Tag) {
                  type(display(to, "endTimeButton"));
              }}}};
}

CommandGroup viewCommands() {
    const auto toggle = [](To& to, Tag tag) { to.views.setShown(tag, !to.views.isShown(tag)); };
    const auto isShown = [](To& to, Tag tag) { return to.views.isShown(tag); };
    return {
        "&View",
        {{.tag = view::statusLine, .title = "&Status Line", .perform = toggle, .isMarked = isShown},
         {.tag = view::bigClock,
          .title = "&Big Clock",
          .shortcuts = key(Qt::Key_F11),
          .perform = toggle,
          .isMarked = isShown}}};
}

CommandGroup transportCommands() {
    const auto press = [](To& to, Tag tag) { to.controller.handleStripeMenuItems(tag); };
    return {"&Stripe",
            {{handleStripeMenuItems, transport::stopped, "&Stop", key(Qt::Key_F5), false, press},
             {handleStripeMenuItems, transport::playing, "&Play", key(Qt::Key_F6), false, press},
             {handleStripeMenuItems, transport::paused, "P&ause", key(Qt::Key_F7), false, press}}};
}

/// A command of the batch list; the controller distinguishes them by tag.
Command batchCommand(Tag tag, std::string_view title, const QList<QKeySequence>& shortcuts,
                     bool mayOpenPanel) {
    return {handleBatchListMenuItems, tag, title, shortcuts, mayOpenPanel, [](To& to, Tag chosen) {
                to.controller.handleBatchListMenuItems(chosen);
            }};
}

Command rowCommand(Tag tag, std::string_view title, const QList<QKeySequence>& shortcuts,
                   bool mayOpenPanel) {
    return {handleRowMenuItems, tag,          title,
            shortcuts,          mayOpenPanel, [](To& to, Tag chosen) { to.rows.perform(chosen); }};
}

CommandGroup exchangeCommands() {
    return {"&File",
            {rowCommand(row_menu::importRows, "&Import…", {}, true),
             rowCommand(row_menu::exportRows, "&Export…", {}, true),
             rowCommand(row_menu::print, "&Print…", keys(QKeySequence::Print, Qt::CTRL | Qt::Key_P),
                        true),
             rowCommand(row_menu::exportPdf, "Export as P&DF…", {}, true)}};
}

CommandGroup clipboardCommands() {
    return {
        "&Edit",
        {rowCommand(row_menu::cut, "Cu&t", keys(QKeySequence::Cut, Qt::CTRL | Qt::Key_X), false),
         rowCommand(row_menu::copy, "&Copy", keys(QKeySequence::Copy, Qt::CTRL | Qt::Key_C), false),
         rowCommand(row_menu::paste, "&Paste", keys(QKeySequence::Paste, Qt::CTRL | Qt::Key_V),
                    true),
         rowCommand(row_menu::selectAll, "Select &All",
                    keys(QKeySequence::SelectAll, Qt::CTRL | Qt::Key_A), false),
         rowCommand(row_menu::duplicate, "&Duplicate", key(Qt::CTRL | Qt::Key_D), false)}};
}

CommandGroup addingCommands() {
    return {"&Batch List",
            {batchCommand(batch_menu::add, "Add to Batch &List…", key(Qt::Key_F9), true),
             rowCommand(row_menu::addNext, "Add &Next…", key(Qt::SHIFT | Qt::Key_F9), true),
             rowCommand(row_menu::remove, "R&emove", {}, false),
             rowCommand(row_menu::rename, "Re&name", {}, false)}};
}

CommandGroup rowAndSettingsCommands() {
    return {"&Batch List",
            {rowCommand(row_menu::takeSettings, "&Take Settings from Row", {}, false),
             rowCommand(row_menu::replaceBySettings, "Re&place Row by Settings", {}, false)}};
}

} // namespace

const std::vector<CommandGroup>& commandGroups() {
    static const std::vector<CommandGroup> groups{
        fileCommands(),
        savingCommands(),
        exchangeCommands(),
        {"&File",
         {{.title = "&Quit",
           .shortcuts = keys(QKeySequence::Quit, Qt::CTRL | Qt::Key_Q),
           .mayOpenPanel = true,
           .perform = [](To& to, Tag) { to.window.close(); }}}},
        undoCommands(),
        clipboardCommands(),
        {"&Edit",
         {{handlePrefsMenu, noTag, "&Preferences…",
           keys(QKeySequence::Preferences, Qt::CTRL | Qt::Key_Comma), true,
           [](To& to, Tag) { to.controller.handlePrefsMenu(); }}}},
        viewCommands(),
        frameRateCommands(),
        syncTypeCommands(),
        {"&Timecode",
         {{handleSetStopTimeMenu, noTag, "Set Stop Time", key(Qt::Key_F8), false,
           [](To& to, Tag) { to.controller.handleSetStopTimeMenu(); }}}},
        typingCommands(),
        transportCommands(),
        {"&Batch List",
         {batchCommand(batch_menu::useBatch, "Turn On Batch Striping", key(Qt::CTRL | Qt::Key_B),
                       false)}},
        {"&Batch List",
         {batchCommand(batch_menu::all, "Stripe &All Items", {}, false),
          batchCommand(batch_menu::selected, "Stripe &Selected Items", {}, false)},
         true},
        {"&Batch List",
         {{stripeFromThisRow, 0, "Stripe &From This Row", key(Qt::CTRL | Qt::Key_R), false,
           [](To& to, Tag) { to.controller.stripeFromThisRow(); }}}},
        addingCommands(),
        rowAndSettingsCommands(),
        {"&Batch List", {rowCommand(row_menu::check, "&Check List…", {}, true)}},
        {"&Help",
         {{.title = "&User Guide",
           .shortcuts = keys(QKeySequence::HelpContents, Qt::Key_F1),
           .perform = [](To& to, Tag) { to.help.openUserGuide(); }}}},
        {"&Help", {{.title = "&About", .perform = [](To& to, Tag) { showAboutBox(to.window); }}}},
    };
    return groups;
}

} // namespace vexa
