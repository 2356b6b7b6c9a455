#include "controls/MainMenu.h"

#include "engine/Vexa_RemoteAppDelegate.h"

#include <QApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <functional>
#include <utility>

namespace vexa {

namespace {

using Perform = void (*)(Vexa_RemoteAppDelegate&, std::uint64_t tag);

struct Command {
    const char* menu; ///< a new group begins where it ends in '-'
    MenuAction action;
    std::uint64_t tag;
    const char* title;
    QKeySequence shortcut;
    Perform perform;
};

using Controller = Vexa_RemoteAppDelegate;

const std::vector<Command>& commands() {
    using enum MenuAction;
    const Perform frameRate = [](Controller& c, std::uint64_t tag) {
        c.handleFrameRateMenuItems(tag);
    };
    const Perform syncType = [](Controller& c, std::uint64_t tag) {
        c.handleSyncTypeMenuItems(tag);
    };
    const Perform stripe = [](Controller& c, std::uint64_t tag) { c.handleStripeMenuItems(tag); };
    const Perform batch = [](Controller& c, std::uint64_t tag) { c.handleBatchListMenuItems(tag); };
    static const std::vector<Command> table{
        {"&File", newDocument, 0, "&New", QKeySequence::New,
         [](Controller& c, std::uint64_t) { c.newDocument(); }},
        {"&File", openDocument, 0, "&Open…", QKeySequence::Open,
         [](Controller& c, std::uint64_t) { c.openDocument(); }},
        {"&File-", saveDocument, 0, "&Save", QKeySequence::Save,
         [](Controller& c, std::uint64_t) { c.saveDocument(); }},
        {"&File", saveDocumentAs, 0, "Save &As…", QKeySequence::SaveAs,
         [](Controller& c, std::uint64_t) { c.saveDocumentAs(); }},
        {"&File", revertDocumentToSaved, 0, "&Revert to Saved", QKeySequence(),
         [](Controller& c, std::uint64_t) { c.revertDocumentToSaved(); }},
        {"&Edit", undo, 0, "Undo", QKeySequence::Undo,
         [](Controller& c, std::uint64_t) { c.undo(); }},
        {"&Edit", redo, 0, "Redo", QKeySequence::Redo,
         [](Controller& c, std::uint64_t) { c.redo(); }},
        {"&Edit-", handlePrefsMenu, 0, "&Preferences…", QKeySequence::Preferences,
         [](Controller& c, std::uint64_t) { c.handlePrefsMenu(); }},
        {"&Timecode", handleFrameRateMenuItems, rate::fps24, "2&4 fps", {}, frameRate},
        {"&Timecode", handleFrameRateMenuItems, rate::fps25, "2&5 fps", {}, frameRate},
        {"&Timecode", handleFrameRateMenuItems, rate::fps30, "&30 fps", {}, frameRate},
        {"&Timecode", handleFrameRateMenuItems, rate::fps30Drop, "30 &df", {}, frameRate},
        {"&Timecode-", handleSyncTypeMenuItems, sync::mtc, "&MTC", {}, syncType},
        {"&Timecode", handleSyncTypeMenuItems, sync::dtl, "DT&L", {}, syncType},
        {"&Timecode", handleSyncTypeMenuItems, sync::fsk, "&FSK", {}, syncType},
        {"&Timecode-", handleSetStopTimeMenu, 0, "Set Stop Time", Qt::Key_F8,
         [](Controller& c, std::uint64_t) { c.handleSetStopTimeMenu(); }},
        {"&Stripe", handleStripeMenuItems, transport::stopped, "&Stop", Qt::Key_F5, stripe},
        {"&Stripe", handleStripeMenuItems, transport::playing, "&Play", Qt::Key_F6, stripe},
        {"&Stripe", handleStripeMenuItems, transport::paused, "P&ause", Qt::Key_F7, stripe},
        {"&Batch List", handleBatchListMenuItems, batch_menu::useBatch, "Turn On Batch Striping",
         Qt::CTRL | Qt::Key_B, batch},
        {"&Batch List-", handleBatchListMenuItems, batch_menu::all, "Stripe &All Items", {}, batch},
        {"&Batch List", handleBatchListMenuItems, batch_menu::selected, "Stripe &Selected Items",
         QKeySequence(), batch},
        {"&Batch List-", handleBatchListMenuItems, batch_menu::add, "Add to Batch &List…",
         Qt::Key_F9, batch},
    };
    return table;
}

QMenu& menuTitled(QMenuBar& bar, const QString& title) {
    const auto actions = bar.actions();
    const auto found = std::ranges::find(actions, title, &QAction::text);
    return found == actions.end() ? *bar.addMenu(title) : *(*found)->menu();
}

/// Such a command waits until whoever chose it has been answered: a screen reader waits for its
/// choice to end, not for the panel to be closed.
bool opensPanel(const Command& command) {
    return QString::fromUtf8(command.title).endsWith(QChar(u'…'));
}

/// Two choices at once open one panel.
auto unlessPanelIsOpen(std::function<void()> perform) {
    return [perform = std::move(perform)] {
        if (!QApplication::activeModalWidget())
            perform();
    };
}

/// The switch of batch striping says in its title what it does; a mark would say the opposite.
bool showsMark(MenuAction action, std::uint64_t tag) {
    return action != MenuAction::handleBatchListMenuItems || tag != batch_menu::useBatch;
}

} // namespace

MainMenu::MainMenu(QMenuBar& menuBar, Vexa_RemoteAppDelegate& controller)
    : QObject(&menuBar), m_controller(controller) {
    for (const auto& command : commands()) {
        auto title = QString::fromLatin1(command.menu);
        const bool newGroup = title.endsWith(QLatin1Char('-'));
        if (newGroup)
            title.chop(1);
        auto& menu = menuTitled(menuBar, title);
        if (newGroup)
            menu.addSeparator();
        auto* action = menu.addAction(QString::fromUtf8(command.title));
        action->setShortcut(command.shortcut);
        const auto perform = [this, &command] { command.perform(m_controller, command.tag); };
        if (opensPanel(command))
            connect(action, &QAction::triggered, this, unlessPanelIsOpen(perform),
                    Qt::QueuedConnection);
        else
            connect(action, &QAction::triggered, this, perform);
        m_items.push_back({command.action, command.tag, action});
    }
    auto& fileMenu = menuTitled(menuBar, QStringLiteral("&File"));
    fileMenu.addSeparator();
    auto* quit = fileMenu.addAction(tr("&Quit"));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, qApp, &QApplication::closeAllWindows);
    for (auto* action : menuBar.actions())
        connect(action->menu(), &QMenu::aboutToShow, this, &MainMenu::validate);
    connect(&controller, &Vexa_RemoteAppDelegate::stateChanged, this, &MainMenu::validate);
    validate();
}

QAction* MainMenu::item(MenuAction action, std::uint64_t tag) const {
    const auto found = std::ranges::find_if(
        m_items, [&](const Item& item) { return item.action == action && item.tag == tag; });
    return found == m_items.end() ? nullptr : found->qAction;
}

void MainMenu::validate() {
    for (const auto& item : m_items) {
        const auto state = validateMenuItem(m_controller, item.action, item.tag);
        item.qAction->setEnabled(state.enabled);
        if (state.marked && showsMark(item.action, item.tag)) {
            item.qAction->setCheckable(true);
            item.qAction->setChecked(*state.marked);
        }
        if (state.title)
            item.qAction->setText(*state.title);
    }
}

} // namespace vexa
