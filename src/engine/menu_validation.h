#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace vexa {

class Vexa_RemoteAppDelegate;

/// What a menu item does; items that do the same differ by their tags.
enum class MenuAction {
    handlePrefsMenu,
    handleFrameRateMenuItems, ///< tag: frame-rate code
    handleSyncTypeMenuItems,  ///< tag: sync-type code
    handleBatchListMenuItems, ///< tag: one of batch_menu
    handleSetStopTimeMenu,
    handleStripeMenuItems, ///< tag: transport state
    undo,
    redo,
    newDocument,
    openDocument,
    saveDocument,
    saveDocumentAs,
    revertDocumentToSaved,
    other, ///< tag: unavailableWhileStriping, or never available
};

namespace batch_menu {
inline constexpr std::uint64_t all = 0;
inline constexpr std::uint64_t selected = 1;
inline constexpr std::uint64_t useBatch = 2;
inline constexpr std::uint64_t add = 3;
} // namespace batch_menu

/// Marks items of other actions that are available while the transport is stopped.
inline constexpr std::uint64_t unavailableWhileStriping = 10000;

/// How an item is to show now. What is absent stays as it was.
struct MenuItemState {
    bool enabled = false;
    std::optional<bool> marked;
    std::optional<QString> title;
};

MenuItemState validateMenuItem(const Vexa_RemoteAppDelegate& controller, MenuAction action,
                               std::uint64_t tag);

} // namespace vexa
