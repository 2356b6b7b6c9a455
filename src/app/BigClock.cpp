#include "app/BigClock.h"

#include "controls/plain_text.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace vexa {

namespace {

/// Another screen than the window's, or the window's if it is the only one.
QScreen* screenBeside(const QWidget& window) {
    const auto screens = QGuiApplication::screens();
    const auto other = std::ranges::find_if(
        screens, [&](const auto* screen) { return screen != window.screen(); });
    return other == screens.end() ? window.screen() : *other;
}

} // namespace

BigClock::BigClock(QWidget& window, const QList<QAction*>& keys)
    : QMainWindow(&window), m_window(window), m_display(*new DisplayPanel(this)) {
    setPlainWindowTitle(*this, tr("Big Clock"));
    m_display.clock().setDigitColor(QColor(0xec, 0xee, 0xef));
    setCentralWidget(&m_display);
    addActions(keys);
}

void BigClock::open() {
    auto* screen = screenBeside(m_window);
    setAttribute(Qt::WA_ShowWithoutActivating, screen != m_window.screen());
    setGeometry(screen->geometry());
    showFullScreen();
    windowHandle()->setScreen(screen);
}

void BigClock::resizeEvent(QResizeEvent* event) {
    constexpr int linesOfType = 20;
    auto type = font();
    type.setPixelSize(std::max(1, std::min(height(), width() * 9 / 16) / linesOfType));
    m_display.setType(type);
    QMainWindow::resizeEvent(event);
}

void BigClock::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_F11)
        close();
    else
        QMainWindow::keyPressEvent(event);
}

void BigClock::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    Q_EMIT closed();
}

} // namespace vexa
