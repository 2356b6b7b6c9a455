#include "controls/MainMenu.h"

#include "controls/OpenRecentMenu.h"
#include "controls/ViewSwitches.h"
#include "engine/Vexa_RemoteAppDelegate.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

namespace vexa {

namespace {

QMenu& menuTitled(QMenuBar& bar, const QString& title) {
    const auto actions = bar.actions();
    const auto found = std::ranges::find(actions, title, &QAction::text);
    return found == actions.end() ? *bar.addMenu(title) : *(*found)->menu();
}

/// Commands that may open a panel are queued, so that an accessibility call returns before the
/// modal loop starts. Of two in the queue, the second does not open another panel over the first.
void performLater(QObject& context, std::function<void()> perform) {
    const auto unlessPanelIsOpen = [perform = std::move(perform)] {
        if (!QApplication::activeModalWidget())
            perform();
    };
    QMetaObject::invokeMethod(&context, unlessPanelIsOpen, Qt::QueuedConnection);
}

/// The title of the batch striping switch says what it does; a check mark would say the opposite.
bool showsMark(const Command& command) {
    return command.action != MenuAction::handleBatchListMenuItems ||
           command.tag != batch_menu::useBatch;
}

/// Radio marks, all of which may be off.
QActionGroup* choiceOfOneAtMost(QObject& owner) {
    auto* group = new QActionGroup(&owner);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    return group;
}

} // namespace

MainMenu::MainMenu(QMenuBar& menuBar, Vexa_RemoteAppDelegate& controller, RecentFiles& recentFiles,
                   ViewSwitches& views)
    : QObject(&menuBar),
      m_menuBar(menuBar),
      m_controller(controller),
      m_recentFiles(recentFiles),
      m_views(views),
      m_rows(controller, *menuBar.window()) {
    for (const auto& [title, commands, isChoiceOfOne] : commandGroups()) {
        auto& menu = menuTitled(menuBar, QString::fromUtf8(title));
        if (!menu.isEmpty())
            menu.addSeparator();
        auto* choice = isChoiceOfOne ? choiceOfOneAtMost(*this) : nullptr;
        for (const auto& command : commands)
            addItem(menu, command)->setActionGroup(choice);
    }
    fillContextMenu();
    for (auto* action : menuBar.actions())
        connect(action->menu(), &QMenu::aboutToShow, this, &MainMenu::validate);
    connect(&controller, &Vexa_RemoteAppDelegate::stateChanged, this, &MainMenu::validate);
    connect(&views, &ViewSwitches::changed, this, &MainMenu::validate);
    validate();
}

/// Offers the row commands on the rows, too.
void MainMenu::fillContextMenu() {
    auto* table = m_menuBar.window()->findChild<QWidget*>(QStringLiteral("batchTable"));
    if (!table)
        return;
    for (const auto tag :
         {row_menu::cut, row_menu::copy, row_menu::paste, row_menu::duplicate, row_menu::remove,
          row_menu::rename, row_menu::takeSettings, row_menu::replaceBySettings})
        table->addAction(item(MenuAction::handleRowMenuItems, tag));
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

QAction* MainMenu::addItem(QMenu& menu, const Command& command) {
    auto* action = command.perform ? menu.addAction(QString()) : addOpenRecent(menu, command);
    action->setText(QString::fromUtf8(command.title));
    action->setShortcuts(command.shortcuts);
    if (command.perform)
        connectAction(*action, command);
    if (command.action || command.isMarked)
        m_items.push_back({&command, action});
    return action;
}

void MainMenu::connectAction(QAction& action, const Command& command) {
    const auto perform = [this, &command] {
        if (isAllowed(command))
            command.perform(targets(), command.tag);
    };
    if (command.mayOpenPanel)
        connect(&action, &QAction::triggered, this,
                [this, perform] { performLater(*this, perform); });
    else
        connect(&action, &QAction::triggered, this, perform);
}

MenuItemState MainMenu::stateOf(const Command& command) {
    if (command.action)
        return validateMenuItem(m_controller, *command.action, command.tag);
    if (command.isMarked)
        return {true, command.isMarked(targets(), command.tag), {}};
    return {true, {}, {}};
}

bool MainMenu::isAllowed(const Command& command) { return stateOf(command).enabled; }

CommandTargets MainMenu::targets() {
    return {m_controller, m_help, *m_menuBar.window(), m_rows, m_views};
}

QAction* MainMenu::addOpenRecent(QMenu& menu, const Command& command) {
    auto* recent = new OpenRecentMenu(m_recentFiles, &menu);
    connect(recent, &OpenRecentMenu::chosen, this, [this, &command](const QString& path) {
        performLater(*this, [this, &command, path] {
            if (isAllowed(command))
                m_controller.openFile(path);
        });
    });
    menu.addMenu(recent);
    return recent->menuAction();
}

QAction* MainMenu::item(MenuAction action, std::uint64_t tag) const {
    const auto found = std::ranges::find_if(m_items, [&](const Item& item) {
        return item.command->action == action && item.command->tag == tag;
    });
    return found == m_items.end() ? nullptr : found->qAction;
}

void MainMenu::validate() {
    for (const auto& item : m_items) {
        const auto state = stateOf(*item.command);
        item.qAction->setEnabled(state.enabled);
        if (state.marked && showsMark(*item.command)) {
            item.qAction->setCheckable(true);
            item.qAction->setChecked(*state.marked);
        }
        if (state.title)
            item.qAction->setText(*state.title);
    }
}

} // namespace vexa
