#pragma once

#include "engine/menu_validation.h"

#include <QAction>
#include <QObject>

#include <vector>

class QMenuBar;

namespace vexa {

/// Every command of the controller as a menu item, made from one table. The controller is asked
/// how the items are to show when a menu opens and whenever its state changes: shortcuts act only
/// where their items could be chosen.
class MainMenu : public QObject {
    Q_OBJECT

public:
    /// Fills the menu bar. The controller must outlive it.
    MainMenu(QMenuBar& menuBar, Vexa_RemoteAppDelegate& controller);

    /// Null when there is no such item.
    QAction* item(MenuAction action, std::uint64_t tag = 0) const;

private:
    struct Item {
        MenuAction action;
        std::uint64_t tag;
        QAction* qAction;
    };

    void validate();

    Vexa_RemoteAppDelegate& m_controller;
    std::vector<Item> m_items;
};

} // namespace vexa
