#pragma once

#include "engine/outlets.h"

#include <QMessageBox>

#include <chrono>
#include <memory>

namespace vexa {

class KeyGuard;

/// An alert over a window, its buttons in the alert's order on every desktop. It comes to the front
/// when the operator turns to the window. One that comes unasked can be read from some steps away,
/// and heeds keys only after a person's reaction time.
class AlertBox final : public QMessageBox {
public:
    AlertBox(const Alert& alert, QWidget& window, std::chrono::milliseconds reactionTime);
    ~AlertBox() override;

    /// Returns when the alert is answered or taken down, with a code for that.
    int run();

protected:
    /// Takes Escape for its cancelling button only. Left to itself, a message box with one button
    /// takes it for that one, and nobody loads a reel by Escape.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// A click on the window behind would leave the keyboard where nothing can be typed.
    void followFocus(QWindow* window);
    void enlarge();

    QList<QAbstractButton*> m_buttons;
    std::unique_ptr<KeyGuard> m_keyGuard;
};

} // namespace vexa
