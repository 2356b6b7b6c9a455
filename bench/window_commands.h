#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace vexa {

/// Chooses an item of the window's menu bar.
inline void choose(const QMainWindow& window, const QString& menu, const QString& title) {
    for (const auto* top : window.menuBar()->actions())
        for (auto* item : top->menu()->actions())
            if (top->text() == menu && item->text() == title)
                item->trigger();
}

} // namespace vexa
