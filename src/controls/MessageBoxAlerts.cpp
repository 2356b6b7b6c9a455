#include "controls/MessageBoxAlerts.h"

#include "controls/AlertBox.h"

#include <QWidget>

namespace vexa {

namespace {

/// The window, or its child window that covers its screen.
QWidget& frontOf(QWidget& window) {
    for (auto* child : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (child->isWindow() && child->isVisible() && child->isFullScreen() &&
            child->screen() == window.screen())
            return *child;
    return window;
}

} // namespace

int MessageBoxAlerts::runModal(const Alert& alert) {
    return AlertBox(alert, frontOf(m_window), m_reactionTime).run();
}

} // namespace vexa
