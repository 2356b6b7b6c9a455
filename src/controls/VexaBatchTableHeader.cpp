#include "controls/VexaBatchTableHeader.h"

#include "controls/timecode_well.h"

#include <QPainter>

#include <cmath>

namespace vexa {

namespace {

constexpr qreal titleTop = 2;

/// The thinnest line the device can draw: the column of device pixels that contains x.
void strokeVertical(QPainter& painter, qreal x, qreal top, qreal bottom, const QColor& color) {
    const qreal scale = painter.device()->devicePixelRatio();
    painter.fillRect(QRectF(std::floor(x * scale) / scale, top, 1 / scale, bottom - top), color);
}

} // namespace

VexaBatchTableHeader::VexaBatchTableHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), m_lucida10gray{QFont(), QColor(0x80, 0x80, 0x80)} {
    auto& font = m_lucida10gray.font;
    font.setFamilies({QStringLiteral("Lucida Grande"), QStringLiteral("DejaVu Sans")});
    font.setPointSize(9);
    setHighlightSections(false);
    setMinimumSectionSize(32);
}

QString VexaBatchTableHeader::title(int column) const {
    return model()->headerData(column, Qt::Horizontal).toString();
}

void VexaBatchTableHeader::drawRect(QPainter& painter, const QRectF& bounds) const {
    const QColor light = QColor::fromRgbF(0.3F, 0.3F, 0.3F, 0.6F);
    const QColor dark = QColor::fromRgbF(0.1F, 0.1F, 0.1F, 0.6F);
    const qreal top = bounds.top() + 1.0;
    const qreal bottom = bounds.bottom() - 1.0;
    qreal x = bounds.left() + 0.5;
    qreal textX = bounds.left();
    qreal previousWidth = 0;
    for (int column = 0; column < count(); ++column) {
        const qreal width = columnWidth(column);
        strokeVertical(painter, x, top, bottom, light);
        textX += previousWidth + m_spacing;
        painter.setFont(m_lucida10gray.font);
        painter.setPen(m_lucida10gray.color);
        painter.drawText(QRectF(textX, bounds.top() + titleTop, width, bounds.height()),
                         Qt::AlignLeft | Qt::AlignTop, title(column));
        previousWidth = width;
        const qreal end = x + width + m_spacing - 1.0;
        strokeVertical(painter, end, top, bottom, dark);
        x = end + 1.0;
    }
}

QSize VexaBatchTableHeader::sectionSizeFromContents(int column) const {
    const QFontMetrics metrics(m_lucida10gray.font);
    const int spacings = 2 * m_spacing; // one before the title, one after the column
    return {metrics.horizontalAdvance(title(column)) + spacings,
            metrics.height() + 2 * static_cast<int>(titleTop)};
}

void VexaBatchTableHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    Q_EMIT released();
}

void VexaBatchTableHeader::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), TimecodeWell::ground());
    drawRect(painter, QRectF(-offset(), 0, length(), height()));
}

} // namespace vexa
