#include "controls/timecode_well.h"

#include "controls/edge_colors.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QtMath>

#include <algorithm>

namespace vexa {

namespace {

constexpr int colons = 3;
constexpr int digits = 8;
constexpr qreal colonShare = 0.6; // of a digit's width
constexpr qreal widthInDigits = digits + colons * colonShare;
constexpr qreal sideMargin = 0.9; // in digit widths, both sides together

QFont digitFont(qreal pixelSize) {
    QFont font;
    font.setPixelSize(std::max(1, qFloor(pixelSize)));
    return font;
}

qreal widestDigit(const QFontMetricsF& metrics) {
    qreal widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

/// The widest digit's width per pixel of type size. Measured once per font, as the clock asks at
/// every frame.
qreal digitWidthPerSize() {
    constexpr int size = 100;
    static QFont measured;
    static qreal width = 0;
    if (const QFont font; width == 0 || font != measured) {
        measured = font;
        width = widestDigit(QFontMetricsF(digitFont(size))) / size;
    }
    return width;
}

/// The type size per pixel of the rectangle's height.
qreal sizePerHeight(TimecodeWell::Digits room) {
    return room == TimecodeWell::Digits::withinRim ? 0.66 : 1.05;
}

qreal pixelSizeForWidth(int width) {
    return width / (digitWidthPerSize() * (widthInDigits + sideMargin));
}

} // namespace

TimecodeWell::TimecodeWell(const QRect& rectangle, Digits room) : m_rectangle(rectangle) {
    m_font = digitFont(
        std::min(rectangle.height() * sizePerHeight(room), pixelSizeForWidth(rectangle.width())));
    m_digitWidth = m_font.pixelSize() * digitWidthPerSize();
    m_left = rectangle.x() + (rectangle.width() - m_digitWidth * widthInDigits) / 2;
}

QSize TimecodeWell::sizeForDigits(const QFont& font, double scale, Digits room) {
    const qreal size = scale * QFontMetrics(font).height();
    return {qCeil(size * digitWidthPerSize() * (widthInDigits + sideMargin)),
            qCeil(size / sizePerHeight(room))};
}

int TimecodeWell::heightForWidth(int width, Digits room) {
    return qCeil(pixelSizeForWidth(width) / sizePerHeight(room));
}

QRect TimecodeWell::cell(qsizetype position) const {
    const auto colonsBefore = position / 3;
    const auto digitsBefore = static_cast<qreal>(position - colonsBefore);
    const bool isColon = position % 3 == 2;
    const qreal left =
        m_left + m_digitWidth * (digitsBefore + static_cast<qreal>(colonsBefore) * colonShare);
    const qreal right = left + m_digitWidth * (isColon ? colonShare : 1.0);
    return {QPoint(qRound(left), m_rectangle.top()),
            QPoint(qRound(right) - 1, m_rectangle.bottom())};
}

QRect TimecodeWell::ink(qsizetype position) const {
    auto ink = cell(position);
    const int free = std::max(0, ink.height() - QFontMetrics(m_font).height());
    return ink.adjusted(0, free / 2, 0, -free / 2);
}

void TimecodeWell::paintGround(QPainter& painter, const QColor& edge, bool focused) const {
    const QRectF frame = QRectF(m_rectangle).adjusted(1, 1, -1, -1);
    const QColor restingRim(0x3a, 0x3e, 0x40);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ground());
    painter.setPen(QPen(focused ? focusEdge() : restingRim, focused ? 2.0 : 1.0));
    painter.drawRoundedRect(frame, 5, 5);
    if (edge.isValid()) {
        const qreal inset = focused ? 2.5 : 0.5;
        painter.setPen(QPen(edge, 2.0));
        painter.drawRoundedRect(frame.adjusted(inset, inset, -inset, -inset), 4, 4);
    }
}

void TimecodeWell::paintCharacter(QPainter& painter, qsizetype position, QChar character) const {
    painter.setFont(m_font);
    painter.drawText(cell(position), Qt::AlignCenter, character);
}

} // namespace vexa
