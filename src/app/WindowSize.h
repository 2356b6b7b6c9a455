#pragma once

#include <QSize>
#include <QWidget>

namespace vexa {

/// Remembers the size that the operator gave a window, from one launch to the next.
class WindowSize {
public:
    /// Gives the window the size it had, or that of its own description, within the screen. The
    /// window must outlive this.
    explicit WindowSize(QWidget& window);
    /// Keeps the size where it has changed since.
    ~WindowSize();
    WindowSize(const WindowSize&) = delete;
    WindowSize& operator=(const WindowSize&) = delete;

private:
    QWidget& m_window;
    QSize m_atFirst;
};

} // namespace vexa
