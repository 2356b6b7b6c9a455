#include "controls/KeyGuard.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace vexa {

namespace {

using namespace std::chrono_literals;

constexpr auto lateness = 100ms; // a timer later than this means a busy program

bool isStroke(QEvent::Type type) {
    return type == QEvent::KeyPress || type == QEvent::ShortcutOverride || type == QEvent::Shortcut;
}

bool isRepeated(const QEvent& stroke) {
    return stroke.type() != QEvent::Shortcut &&
           static_cast<const QKeyEvent&>(stroke).isAutoRepeat();
}

} // namespace

KeyGuard::KeyGuard(QWidget& window, std::chrono::milliseconds reactionTime)
    : m_window(window), m_reactionTime(reactionTime) {
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &KeyGuard::counted);
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyGuard::eventFilter(QObject* object, QEvent* event) {
    if (object == &m_window && event->type() == QEvent::Paint && !m_sinceCount.isValid())
        count();
    return isStroke(event->type()) && (!m_seen || isRepeated(*event));
}

void KeyGuard::count() {
    m_sinceCount.start();
    m_timer.start(m_reactionTime);
}

void KeyGuard::counted() {
    if (m_sinceCount.elapsed() > (m_reactionTime + lateness).count())
        count();
    else
        m_seen = true;
}

} // namespace vexa
