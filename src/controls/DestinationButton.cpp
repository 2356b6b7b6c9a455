#include "controls/DestinationButton.h"

#include "controls/edge_colors.h"
#include "controls/gray_caption.h"
#include "controls/plain_text.h"

#include <QPainter>

namespace vexa {

namespace {

constexpr int lampGap = 6;
constexpr int focusMargin = 4;

} // namespace

DestinationButton::DestinationButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setGrayCaption(*this);
}

void DestinationButton::tell(const QString& text, bool isThere) {
    const auto line = singleLine(text);
    if (line == this->text() && isThere == m_isThere)
        return;
    m_isThere = isThere;
    setText(line);
    setPlainToolTip(*this, text);
}

QSize DestinationButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + lampSide() + lampGap + focusMargin,
            fontMetrics().height() + 2};
}

QSize DestinationButton::minimumSizeHint() const {
    constexpr int leastLetters = 12;
    return {fontMetrics().averageCharWidth() * leastLetters, sizeHint().height()};
}

void DestinationButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasFocus()) {
        painter.setPen(QPen(focusEdge(), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
    }
    const QRect inner = rect().adjusted(focusMargin, 0, 0, 0);
    const auto metrics = fontMetrics();
    const int room = inner.width() - lampSide() - lampGap;
    const bool fits = metrics.horizontalAdvance(text()) <= room; // eliding measures more finely
    const auto shown = fits ? text() : metrics.elidedText(text(), Qt::ElideMiddle, room);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(inner, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, shown);

    const qreal left = inner.right() + 1 - metrics.horizontalAdvance(shown) - lampGap - lampSide();
    const QRectF lamp(left, (height() - lampSide()) / 2.0, lampSide(), lampSide());
    const QColor there(0x1a, 0x8f, 0x0e);
    painter.setPen(QPen(m_isThere ? there : captionGray(), 1.2));
    painter.setBrush(m_isThere ? QBrush(there) : QBrush(Qt::NoBrush));
    painter.drawEllipse(lamp.adjusted(0.6, 0.6, -0.6, -0.6));
}

} // namespace vexa
