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
    handleRowMenuItems,    ///< tag: one of row_menu
    stripeFromThisRow,
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

/// What is done with rows, besides striping them.
namespace row_menu {
inline constexpr std::uint64_t cut = 0;
inline constexpr std::uint64_t copy = 1;
inline constexpr std::uint64_t paste = 2;
inline constexpr std::uint64_t selectAll = 3;
inline constexpr std::uint64_t duplicate = 4;
inline constexpr std::uint64_t remove = 5;
inline constexpr std::uint64_t rename = 6;
inline constexpr std::uint64_t takeSettings = 7;
inline constexpr std::uint64_t replaceBySettings = 8;
inline constexpr std::uint64_t addNext = 9;
inline constexpr std::uint64_t check = 10;
inline constexpr std::uint64_t importRows = 11;
inline constexpr std::uint64_t exportRows = 12;
inline constexpr std::uint64_t print = 13;
inline constexpr std::uint64_t exportPdf = 14;
} // namespace row_menu

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
