#pragma once

#include <QObject>

#include <cstdint>

namespace vexa {

/// Parts of the window that can be shown and hidden; tags of the View menu's items.
namespace view {
inline constexpr std::uint64_t statusLine = 0;
inline constexpr std::uint64_t bigClock = 1;
} // namespace view

/// Shows and hides them.
class ViewSwitches : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool isShown(std::uint64_t tag) const = 0;
    virtual void setShown(std::uint64_t tag, bool shown) = 0;

Q_SIGNALS:
    void changed();
};

} // namespace vexa
