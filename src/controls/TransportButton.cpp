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

// The size of the sign's field, in heights of the caption's type.
constexpr int keyWidth = 5;
constexpr int playKeyWidth = 7; // the one needed in a hurry
constexpr int keyHeight = 4;
constexpr int leastKeyHeight = 2;
constexpr int captionMargin = 3;
constexpr qreal radius = 5;

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
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding); // shrinks on a small screen
}

QSize TransportButton::sizeHint() const { return sizeForSign(keyHeight); }
QSize TransportButton::minimumSizeHint() const { return sizeForSign(leastKeyHeight); }

QSize TransportButton::sizeForSign(int heights) const {
    const int line = fontMetrics().height();
    const bool plays = property("tag").toULongLong() == transport::playing;
    return {std::max((plays ? playKeyWidth : keyWidth) * line,
                     fontMetrics().horizontalAdvance(text()) + line),
            heights * line + captionHeight()};
}

int TransportButton::captionHeight() const { return fontMetrics().height() + 2 * captionMargin; }

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
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // White beneath the caption in every state: its gray is not legible on anything darker.
    const QRectF key = QRectF(rect()).adjusted(1, 1, -1, -1);
    QPainterPath shape;
    shape.addRoundedRect(key, radius, radius);
    painter.fillPath(shape, Qt::white);
    const QRectF field(0, 0, width(), height() - captionHeight());
    if (on || isDown()) {
        painter.setClipPath(shape);
        painter.fillRect(field, on ? QColor(0x1d, 0x20, 0x22) : QColor(0xe3, 0xe6, 0xe8));
        painter.setClipping(false);
    }
    painter.setPen(QPen(hasFocus() ? focusEdge() : restingEdge(), hasFocus() ? 2.0 : 1.0));
    painter.drawPath(shape);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(QRectF(0, field.bottom(), width(), captionHeight()), Qt::AlignCenter, text());

    const qreal side = 0.42 * std::min(field.width(), field.height());
    painter.translate(field.center());
    painter.scale(side, side);
    painter.fillPath(sign(tag), signColor(tag, on));
}

} // namespace vexa
