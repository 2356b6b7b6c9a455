#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace vexa {

class Vexa_RemoteAppDelegate;

/// What a menu item does. Items with the same action differ by their tags.
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
    other, ///< available only with the tag unavailableWhileStriping
};

namespace batch_menu {
inline constexpr std::uint64_t all = 0;
inline constexpr std::uint64_t selected = 1;
inline constexpr std::uint64_t useBatch = 2;
inline constexpr std::uint64_t add = 3;
} // namespace batch_menu

/// Tag of items with other actions that are available while the transport is stopped.
inline constexpr std::uint64_t unavailableWhileStriping = 10000;

/// How an item should appear now. Absent values leave it unchanged.
struct MenuItemState {
    bool enabled = false;
    std::optional<bool> marked;
    std::optional<QString> title;
};

MenuItemState validateMenuItem(const Vexa_RemoteAppDelegate& controller, MenuAction action,
                               std::uint64_t tag);

} // namespace vexa
