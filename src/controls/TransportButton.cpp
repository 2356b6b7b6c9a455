#include "controls/TransportButton.h"

#include "controls/edge_colors.h"
#include "stripe/transport_state.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVariant>

#include <algorithm>

namespace vexa {

namespace {

// Of the square with the sign, in heights of the caption's type.
constexpr int keySide = 5;
constexpr int leastKeySide = 3;
constexpr int captionGap = 4;

/// The sign in a square of side 1 around the origin.
QPainterPath sign(std::uint64_t tag) {
    QPainterPath path;
    switch (tag) {
    case transport::playing:
        path.addPolygon(QPolygonF{{{-0.40, -0.5}, {0.5, 0}, {-0.40, 0.5}}});
        path.closeSubpath();
        break;
    case transport::paused:
        path.addRect(-0.42, -0.45, 0.28, 0.9);
        path.addRect(0.14, -0.45, 0.28, 0.9);
        break;
    default:
        path.addRect(-0.43, -0.43, 0.86, 0.86);
    }
    return path;
}

QColor signColor(std::uint64_t tag, bool on) {
    if (!on)
        return {0x50, 0x55, 0x58};
    switch (tag) {
    case transport::playing:
        return {0x31, 0xdf, 0x1a};
    case transport::paused:
        return {0xff, 0xb3, 0x2e};
    default:
        return {0xf2, 0xf4, 0xf5};
    }
}

} // namespace

TransportButton::TransportButton(QWidget* parent) : QPushButton(parent) {
    setCheckable(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred); // smaller on a small screen
}

QSize TransportButton::sizeHint() const { return sizeForKey(keySide); }
QSize TransportButton::minimumSizeHint() const { return sizeForKey(leastKeySide); }

QSize TransportButton::sizeForKey(int heights) const {
    const int side = heights * fontMetrics().height();
    return {std::max(side, fontMetrics().horizontalAdvance(text()) + 2 * captionGap),
            side + captionGap + fontMetrics().height()};
}

void TransportButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        moveFocus(-1);
        return;
    case Qt::Key_Right:
    case Qt::Key_Down:
        moveFocus(1);
        return;
    default:
        QPushButton::keyPressEvent(event);
    }
}

void TransportButton::moveFocus(int step) {
    const auto neighbours = group() ? group()->buttons() : QList<QAbstractButton*>{this};
    if (auto* next = neighbours.value(neighbours.indexOf(this) + step))
        next->setFocus(Qt::TabFocusReason);
}

void TransportButton::paintEvent(QPaintEvent*) {
    const auto tag = property("tag").toULongLong();
    const bool on = isChecked();
    const QColor ground = on ? QColor(0x2a, 0x2e, 0x30) : QColor(0xf1, 0xf2, 0xf3);
    const QColor edge = hasFocus() ? focusEdge() : restingEdge();

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int captionHeight = fontMetrics().height();
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(QRect(0, height() - captionHeight, width(), captionHeight), Qt::AlignCenter,
                     text());

    const QRectF key = QRectF(rect()).adjusted(1, 1, -1, -1 - captionHeight - captionGap);
    painter.setBrush(isDown() ? ground.darker(115) : ground);
    painter.setPen(QPen(edge, hasFocus() ? 2.0 : 1.0));
    painter.drawRoundedRect(key, 5, 5);
    const qreal side = 0.36 * std::min(key.width(), key.height());
    painter.translate(key.center());
    painter.scale(side, side);
    painter.fillPath(sign(tag), signColor(tag, on));
}

} // namespace vexa
