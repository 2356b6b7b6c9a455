#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <vector>

namespace vexa {

class PropertyList;

/// Keys of an item's fields in the list file, and identifiers of the table's columns.
namespace item_key {
inline const QString reel = QStringLiteral("vexareel");
inline const QString title = QStringLiteral("vexatitle");
inline const QString start = QStringLiteral("vexastart");
inline const QString stop = QStringLiteral("vexastop");
inline const QString rate = QStringLiteral("vexarate");
inline const QString type = QStringLiteral("vexatype");
inline const QString id = QStringLiteral("vexaid");
} // namespace item_key

/// One tape reel to stripe. Any number is allowed: files are not checked.
struct BatchItem {
    std::uint64_t reel = 0;
    QString title;           ///< null when the item has none
    std::uint64_t start = 0; ///< packed timecode in the low 32 bits
    std::uint64_t stop = 0;  ///< packed timecode in the low 32 bits
    std::uint64_t rate = 0;  ///< frame-rate code
    std::uint64_t type = 0;  ///< sync-type code
    std::uint64_t id = 0;    ///< unique among the items made since the program started

    /// The list file's element that the item was read from. Kept only if the fields do not
    /// represent all of it.
    std::shared_ptr<const PropertyList> original = nullptr;

    /// Compares the fields and, if kept, the originals.
    bool operator==(const BatchItem& other) const;
};

/// The list, the selection and the undo records share the same items. Only the list may change an
/// item that is in it.
using BatchItemRef = std::shared_ptr<BatchItem>;
using BatchItems = std::vector<BatchItemRef>;

/// The order of the list: reel, start, title, stop, id, each ascending. Titles compare by UTF-16
/// code unit. Items that are equal in all of these are equivalent.
bool comesBefore(const BatchItemRef& a, const BatchItemRef& b);

} // namespace vexa
