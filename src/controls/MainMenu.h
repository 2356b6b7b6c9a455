#pragma once

#include "controls/RowActions.h"
#include "controls/VexaHelpController.h"
#include "controls/commands.h"
#include "engine/menu_validation.h"

#include <QObject>

#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace vexa {

class RecentFiles;
class ViewSwitches;

/// Every command as a menu item, made from the table of commands. The controller validates its
/// items when a menu opens and whenever its state changes, so a disabled item's shortcut does
/// nothing. It validates again before performing a command, since other commands may have come
/// between.
class MainMenu : public QObject {
    Q_OBJECT

public:
    /// Fills the menu bar. The controller, the files and the views must outlive it.
    MainMenu(QMenuBar& menuBar, Vexa_RemoteAppDelegate& controller, RecentFiles& recentFiles,
             ViewSwitches& views);

    /// An item that the controller validates; null if there is no such item.
    QAction* item(MenuAction action, std::uint64_t tag = 0) const;

private:
    struct Item {
        const Command* command;
        QAction* qAction;
    };

    QAction* addItem(QMenu& menu, const Command& command);
    void connectAction(QAction& action, const Command& command);
    bool isAllowed(const Command& command);
    QAction* addOpenRecent(QMenu& menu, const Command& command);
    void fillContextMenu();
    void validate();
    MenuItemState stateOf(const Command& command);
    CommandTargets targets();

    QMenuBar& m_menuBar;
    Vexa_RemoteAppDelegate& m_controller;
    RecentFiles& m_recentFiles;
    ViewSwitches& m_views;
    VexaHelpController m_help;
    RowActions m_rows;
    std::vector<Item> m_items;
};

} // namespace vexa
