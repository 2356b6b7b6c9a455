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

    std::optional<MenuAction> action = {}; ///< none: always enabled, without asking the controller
    std::uint64_t tag = 0;
    std::string_view title = {}; ///< UTF-8, with '&' before the letter that chooses it
    QList<QKeySequence> shortcuts = {};
    bool mayOpenPanel = false;
    Perform perform = nullptr; ///< null: the item leads to the files opened last
    /// Whether the item is marked, for one that the controller is not asked about; null: never.
    bool (*isMarked)(const CommandTargets& to, std::uint64_t tag) = nullptr;
};

/// Commands that stand together in a menu, between separators.
struct CommandGroup {
    std::string_view menu; ///< its title
    std::vector<Command> commands;
    bool isChoiceOfOne = false; ///< one at most is marked
};

/// All of them, in the order of the menus. Call when the application is there: its desktop has a
/// say in the shortcuts.
const std::vector<CommandGroup>& commandGroups();

} // namespace vexa
