#include "controls/MessageBoxAlerts.h"

#include "controls/plain_text.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

namespace vexa {

namespace {

/// Takes Escape for its cancelling button only. Left to itself, a message box with one button
/// takes it for that one, and nobody loads a reel by Escape.
class AlertBox final : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Escape || buttons().size() > 1)
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override {
        if (buttons().size() > 1)
            QMessageBox::closeEvent(event);
        else
            event->ignore();
    }
};

} // namespace

int MessageBoxAlerts::runModal(const Alert& alert) {
    AlertBox box(QMessageBox::Information, {}, {}, QMessageBox::NoButton, &m_window);
    box.setWindowModality(Qt::WindowModal);
    setPlainText(box, alert.message, alert.information);
    QList<QAbstractButton*> buttons;
    // Of one role, and of this one: desktops have orders of their own for all others.
    for (const auto& text : alert.buttons)
        buttons += box.addButton(text, QMessageBox::ActionRole);
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.constFirst()));
    if (buttons.size() > 1)
        box.setEscapeButton(buttons.constLast());
    box.exec();
    const auto clicked = buttons.indexOf(box.clickedButton());
    return clicked < 0 ? alertUnanswered : alertFirstButton + static_cast<int>(clicked);
}

} // namespace vexa
