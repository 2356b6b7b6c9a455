#pragma once

#include "engine/outlets.h"

#include <QMessageBox>

#include <chrono>
#include <memory>

namespace vexa {

class KeyGuard;

/// An alert over a window, with its buttons in the alert's order on every desktop. It is raised
/// when the operator activates the window. An unprompted one has large type to be read from a
/// distance, and ignores keys until the operator can have reacted.
class AlertBox final : public QMessageBox {
public:
    AlertBox(const Alert& alert, QWidget& window, std::chrono::milliseconds reactionTime);
    ~AlertBox() override;

    /// Returns a code when the alert is answered or dismissed.
    int run();

protected:
    /// Escape presses the cancelling button only. By default it would press a message box's only
    /// button, and Escape must not load a reel.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// Brings the alert back when the window behind takes the focus, as nothing can be typed there.
    void followFocus(QWindow* window);
    void enlarge();

    QList<QAbstractButton*> m_buttons;
    std::unique_ptr<KeyGuard> m_keyGuard;
};

} // namespace vexa
