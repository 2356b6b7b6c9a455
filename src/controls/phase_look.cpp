#include "controls/phase_look.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace vexa {

namespace {

QPolygonF triangle(qreal left, qreal right) {
    return QPolygonF{{{left, 0.05}, {right, 0.5}, {left, 0.95}}};
}

/// In a square of side 1.
QPainterPath shapeOf(Phase phase) {
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    switch (phase) {
    case Phase::stopped:
        path.addRect(0.08, 0.08, 0.84, 0.84);
        break;
    case Phase::running:
        path.addPolygon(triangle(0.1, 1.0));
        path.closeSubpath();
        break;
    case Phase::paused:
        path.addRect(0.10, 0.05, 0.28, 0.9);
        path.addRect(0.62, 0.05, 0.28, 0.9);
        break;
    case Phase::betweenItems:
        path.addPolygon(triangle(0.05, 0.7));
        path.closeSubpath();
        path.addRect(0.74, 0.05, 0.2, 0.9);
        break;
    case Phase::awaitingReel:
        path.addEllipse(0.0, 0.0, 1.0, 1.0);
        for (const auto& hole :
             std::array{QPointF(0.5, 0.25), QPointF(0.28, 0.64), QPointF(0.72, 0.64)})
            path.addEllipse(hole, 0.15, 0.15);
        break;
    }
    return path;
}

} // namespace

QColor phaseColor(Phase phase) {
    switch (phase) {
    case Phase::stopped:
        break;
    case Phase::running:
        return {0x31, 0xdf, 0x1a};
    case Phase::paused:
    case Phase::betweenItems:
        return {0xff, 0xb3, 0x2e};
    case Phase::awaitingReel:
        return {0xff, 0x5a, 0x4d};
    }
    return {0xc3, 0xc8, 0xcb};
}

void paintPhase(QPainter& painter, const QRectF& square, Phase phase) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width(), square.height());
    painter.fillPath(shapeOf(phase), phaseColor(phase));
    painter.restore();
}

} // namespace vexa
