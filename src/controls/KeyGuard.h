#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

class QWidget;

namespace vexa {

/// Keeps keys from a window that opens unprompted until the operator can have seen it, so that
/// typing does not answer an unread question. The time runs from the window's first paint, and
/// restarts if the program was too busy to take keys. A key held down since before is ignored.
class KeyGuard final : public QObject {
public:
    /// The window must outlive this.
    KeyGuard(QWidget& window, std::chrono::milliseconds reactionTime);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void count();
    void counted();

    QWidget& m_window;
    std::chrono::milliseconds m_reactionTime;
    QTimer m_timer;
    QElapsedTimer m_sinceCount;
    bool m_seen = false;
};

} // namespace vexa
