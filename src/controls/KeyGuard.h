#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

class QWidget;

namespace vexa {

/// Keeps keys from a window that opens unasked until its operator can have seen it: whoever is
/// typing then does not answer what they have not read. Counts from the window's first paint, and
/// anew where the program was too busy to take the keys struck meanwhile. A key that was down
/// before never counts.
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
