#include "controls/AlertBox.h"

#include "controls/KeyGuard.h"
#include "controls/plain_text.h"

#include <QCloseEvent>
#include <QFontInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QWindow>

namespace vexa {

AlertBox::AlertBox(const Alert& alert, QWidget& window, std::chrono::milliseconds reactionTime)
    : QMessageBox(Information, {}, {}, NoButton, &window) {
    setWindowModality(Qt::WindowModal);
    setPlainText(*this, alert.message, alert.information);
    // Desktops reorder buttons of any other role, or of several.
    for (const auto& text : alert.buttons)
        m_buttons += addButton(text, ActionRole);
    setDefaultButton(qobject_cast<QPushButton*>(m_buttons.constFirst()));
    if (m_buttons.size() > 1)
        setEscapeButton(m_buttons.constLast());
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &AlertBox::followFocus);
    if (alert.comesUnasked) {
        enlarge();
        m_keyGuard = std::make_unique<KeyGuard>(*this, reactionTime);
    }
}

AlertBox::~AlertBox() = default;

int AlertBox::run() {
    exec();
    const auto clicked = m_buttons.indexOf(clickedButton());
    return clicked < 0 ? alertUnanswered : alertFirstButton + static_cast<int>(clicked);
}

void AlertBox::followFocus(QWindow* window) {
    if (!window || window != parentWidget()->window()->windowHandle())
        return;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void AlertBox::enlarge() {
    constexpr qreal factor = 2.5;
    auto large = font();
    large.setPointSizeF(factor * QFontInfo(large).pointSizeF());
    setFont(large);
}

void AlertBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || m_buttons.size() > 1)
        QMessageBox::keyPressEvent(event);
}

void AlertBox::closeEvent(QCloseEvent* event) {
    if (m_buttons.size() > 1)
        QMessageBox::closeEvent(event);
    else
        event->ignore();
}

} // namespace vexa
