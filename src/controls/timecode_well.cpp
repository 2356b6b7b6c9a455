#include "controls/timecode_well.h"

#include "controls/edge_colors.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QtMath>

#include <algorithm>

namespace vexa {

namespace {

constexpr int characters = 11;
constexpr int colons = 3;
constexpr qreal colonShare = 0.6; // of a digit's width
constexpr qreal digitWidthPerSize = 0.64;
constexpr qreal widthInDigits = (characters - colons) + colons * colonShare;
constexpr qreal sizePerHeight = 0.66;
constexpr qreal sideMargin = 0.9; // digit widths, both sides together

qreal pixelSizeFor(const QSize& size) {
    return std::min(size.height() * sizePerHeight,
                    size.width() / (digitWidthPerSize * (widthInDigits + sideMargin)));
}

QFont digitFont(qreal pixelSize) {
    QFont font;
    font.setPixelSize(std::max(1, qFloor(pixelSize)));
    return font;
}

} // namespace

TimecodeWell::TimecodeWell(const QRect& rectangle)
    : m_rectangle(rectangle),
      m_font(digitFont(pixelSizeFor(rectangle.size()))),
      m_digitWidth(m_font.pixelSize() * digitWidthPerSize),
      m_left(rectangle.x() + (rectangle.width() - m_digitWidth * widthInDigits) / 2) {}

QSize TimecodeWell::sizeForDigits(const QFont& font) {
    const qreal size = QFontMetrics(font).height();
    return {qCeil(size * digitWidthPerSize * (widthInDigits + sideMargin)),
            qCeil(size / sizePerHeight)};
}

QRect TimecodeWell::cell(qsizetype position) const {
    const auto colonsBefore = static_cast<qreal>(position / 3);
    const auto digitsBefore = static_cast<qreal>(position) - colonsBefore;
    const bool isColon = position % 3 == 2;
    const qreal left = m_left + m_digitWidth * (digitsBefore + colonsBefore * colonShare);
    const qreal right = left + m_digitWidth * (isColon ? colonShare : 1.0);
    return {QPoint(qRound(left), m_rectangle.top()),
            QPoint(qRound(right) - 1, m_rectangle.bottom())};
}

void TimecodeWell::paintGround(QPainter& painter, const QColor& edge, bool focused) const {
    const QRectF frame = QRectF(m_rectangle).adjusted(1, 1, -1, -1);
    const QColor restingRim(0x3a, 0x3e, 0x40);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ground());
    painter.setPen(QPen(focused ? focusEdge() : restingRim, focused ? 2.0 : 1.0));
    painter.drawRoundedRect(frame, 5, 5);
}

void TimecodeWell::paintCharacter(QPainter& painter, qsizetype position, QChar character) const {
    painter.setFont(m_font);
    painter.drawText(cell(position), Qt::AlignCenter, character);
}

} // namespace vexa
    if (edge.isValid()) {
        const qreal inset = focused ? 2.5 : 0.5;
        painter.setPen(QPen(edge, 2.0));
        painter.drawRoundedRect(frame.adjusted(inset, inset, -inset, -inset), 4, 4);
    }
