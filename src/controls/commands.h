#pragma once

#include "engine/menu_validation.h"

#include <QKeySequence>
#include <QList>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

class QWidget;

namespace vexa {

class RowActions;
class VexaHelpController;
class Vexa_RemoteAppDelegate;
class ViewSwitches;

/// What commands act on.
struct CommandTargets {
    Vexa_RemoteAppDelegate& controller;
    const VexaHelpController& help;
    QWidget& window;
    RowActions& rows;
    ViewSwitches& views;
};

/// An item of the menus.
struct Command {
    using Perform = void (*)(const CommandTargets& to, std::uint64_t tag);

    std::optional<MenuAction> action = {}; ///< none: always enabled, not validated
    std::uint64_t tag = 0;
    std::string_view title = {}; ///< UTF-8, with '&' before the mnemonic
    QList<QKeySequence> shortcuts = {};
    bool mayOpenPanel = false;
    Perform perform = nullptr; ///< null: the item opens the menu of recent files
    /// Whether the item is marked, if the controller does not validate it; null: never.
    bool (*isMarked)(const CommandTargets& to, std::uint64_t tag) = nullptr;
};

/// Commands that stand together in a menu, between separators.
struct CommandGroup {
    std::string_view menu; ///< the menu's title
    std::vector<Command> commands;
    bool isChoiceOfOne = false; ///< at most one is marked
};

/// All commands, in menu order. Call after creating the application: the shortcuts depend on its
/// desktop.
const std::vector<CommandGroup>& commandGroups();

} // namespace vexa
