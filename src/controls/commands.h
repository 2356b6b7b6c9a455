#pragma once

#include "engine/menu_validation.h"

#include <QKeySequence>
#include <QList>

#include <cstdint>
#include <optional>
#include <vector>

class QWidget;

namespace vexa {

class VexaHelpController;
class Vexa_RemoteAppDelegate;

/// What commands act on.
struct CommandTargets {
    Vexa_RemoteAppDelegate& controller;
    const VexaHelpController& help;
    QWidget& window;
};

/// An item of the menus.
struct Command {
    using Perform = void (*)(const CommandTargets& to, std::uint64_t tag);

    const char* menu;                 ///< a new group begins where it ends in '-'
    std::optional<MenuAction> action; ///< nothing: always enabled, without asking the controller
    std::uint64_t tag;
    const char* title;
    QList<QKeySequence> shortcuts;
    Perform perform; ///< null: the item leads to the files opened last
};

/// All of them, in the order of the menus. Call when the application is there: its desktop has a
/// say in the shortcuts.
const std::vector<Command>& commands();

} // namespace vexa
