#pragma once

#include <QSize>
#include <QWidget>

namespace vexa {

/// Remembers a window's size between launches.
class WindowSize {
public:
    /// Restores the window's last size or, without one, applies its standard size, within the
    /// screen. The window must outlive this.
    explicit WindowSize(QWidget& window);
    /// Saves the size if it has changed since.
    ~WindowSize();
    WindowSize(const WindowSize&) = delete;
    WindowSize& operator=(const WindowSize&) = delete;

private:
    QWidget& m_window;
    QSize m_atFirst;
};

} // namespace vexa
