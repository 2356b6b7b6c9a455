#include "controls/RunLineView.h"

#include "controls/ElidedLabel.h"
#include "controls/phase_look.h"
#include "controls/timecode_well.h"

#include <QEvent>
#include <QFontInfo>
#include <QPainter>

#include <algorithm>

namespace vexa {

namespace {

const QColor lineColor(0xd8, 0xdc, 0xde);
const QColor lesserText(0x9b, 0xa1, 0xa5);
constexpr double lesserShare = 0.6; // of the first line's type size

QFont enlarged(QFont font, double scale) {
    font.setPointSizeF(scale * QFontInfo(font).pointSizeF());
    return font;
}

/// A line with a text at the left and one at the right. The left one is cut first.
void paintLine(QPainter& painter, const QRect& line, const QString& left, const QString& right) {
    const auto metrics = painter.fontMetrics();
    const int gap = right.isEmpty() ? 0 : metrics.averageCharWidth() * 2;
    const int room = line.width() - metrics.horizontalAdvance(right) - gap;
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     metrics.elidedText(left, Qt::ElideRight, std::max(room, 0)));
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter,
                     metrics.elidedText(right, Qt::ElideLeft, line.width()));
}

} // namespace

RunLineView::RunLineView(QWidget* parent) : QWidget(parent), m_title(*new ElidedLabel(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto colors = palette();
    colors.setColor(QPalette::WindowText, lineColor);
    m_title.setPalette(colors);
    setScale(m_scale);
}

void RunLineView::tell(Phase phase, const RunLine& line) {
    if (phase == m_phase && line == m_line)
        return;
    const bool isNews = phase != m_phase || line.place != m_line.place;
    m_phase = phase;
    m_line = line;
    placeTitle();
    update();
    if (isNews)
        tellReading(*this);
}

void RunLineView::setScale(double scale) {
    m_scale = scale;
    m_title.setFont(largeType());
    updateGeometry();
    placeTitle();
}

QFont RunLineView::largeType() const { return enlarged(font(), m_scale); }

QSize RunLineView::sizeHint() const {
    const QFontMetrics large(largeType());
    const QFontMetrics lesser(enlarged(font(), std::max(1.0, m_scale * lesserShare)));
    return {0, large.height() + lesser.height()};
}

QRect RunLineView::shapeSquare() const {
    const QFontMetrics metrics(m_title.font());
    const int side = metrics.capHeight();
    return {0, metrics.ascent() - side, side, side};
}

void RunLineView::placeTitle() {
    const QFontMetrics metrics(m_title.font());
    const int gap = metrics.horizontalAdvance(QLatin1Char(' '));
    const int left = shapeSquare().right() + 3 * gap + metrics.horizontalAdvance(m_line.words);
    const int right = width() - metrics.horizontalAdvance(m_line.left) - 2 * gap;
    m_title.setGeometry(left, 0, std::max(right - left, 0), metrics.height());
}

void RunLineView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setScale(m_scale);
}

void RunLineView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeTitle();
}

void RunLineView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPhase(painter, shapeSquare(), m_phase);
    painter.setFont(m_title.font());
    const auto metrics = painter.fontMetrics();
    const int gap = metrics.horizontalAdvance(QLatin1Char(' '));
    const QRect first(0, 0, width(), metrics.height());
    painter.setPen(lineColor);
    paintLine(painter, first, {}, m_line.left);
    painter.setPen(phaseColor(m_phase));
    paintLine(painter,
              first.adjusted(shapeSquare().right() + 2 * gap, 0,
                             -metrics.horizontalAdvance(m_line.left) - gap, 0),
              m_line.words, {});
    painter.setPen(lesserText);
    painter.setFont(enlarged(font(), std::max(1.0, m_scale * lesserShare)));
    paintLine(painter, rect().adjusted(0, first.height(), 0, 0), m_line.place, m_line.whole);
}

} // namespace vexa
