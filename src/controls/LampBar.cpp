#include "controls/LampBar.h"

#include "controls/phase_look.h"

#include <QPainter>

#include <optional>
#include <utility>

namespace vexa {

namespace {

constexpr int blinkInterval = 500; // ms
constexpr int lamps = 3;

/// Counted from the top.
std::optional<int> placeOf(Phase phase) {
    switch (phase) {
    case Phase::awaitingReel:
        return 0;
    case Phase::paused:
    case Phase::betweenItems:
        return 1;
    case Phase::running:
        return 2;
    case Phase::stopped:
        break;
    }
    return {};
}

} // namespace

LampBar::LampBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void LampBar::setPhase(Phase phase) {
    if (std::exchange(m_phase, phase) == phase)
        return;
    m_isLit = true;
    if (phase == Phase::betweenItems)
        m_blink.start(blinkInterval, this);
    else
        m_blink.stop();
    update();
}

void LampBar::timerEvent(QTimerEvent*) {
    m_isLit = !m_isLit;
    update();
}

QSize LampBar::sizeHint() const { return {fontMetrics().height() * 2 / 3, 0}; }

void LampBar::paintEvent(QPaintEvent*) {
    const qreal gap = width() * 0.4;
    constexpr qreal radius = 2;
    const QColor dark(0x2a, 0x2e, 0x30);
    const qreal side = (height() - (lamps - 1) * gap) / lamps;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int lamp = 0; lamp < lamps; ++lamp) {
        painter.setBrush(m_isLit && lamp == placeOf(m_phase) ? phaseColor(m_phase) : dark);
        painter.drawRoundedRect(QRectF(0, lamp * (side + gap), width(), side), radius, radius);
    }
}

} // namespace vexa
