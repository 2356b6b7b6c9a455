#include "controls/KelGrayTextButton.h"

#include "controls/edge_colors.h"
#include "controls/gray_caption.h"

#include <QPainter>

namespace vexa {

KelGrayTextButton::KelGrayTextButton(QWidget* parent) : QPushButton(parent) {
    setFocusPolicy(Qt::TabFocus);
}

void KelGrayTextButton::awakeFromNib() { setGrayCaption(*this); }

QSize KelGrayTextButton::sizeHint() const {
    const auto text = fontMetrics().size(Qt::TextSingleLine, this->text());
    return {text.width() + 2 * fontMetrics().height(), text.height() * 7 / 4};
}

void KelGrayTextButton::paintEvent(QPaintEvent*) {
    const bool strong = isDown() || hasFocus();
    const QColor edge = isDown() ? captionGray() : hasFocus() ? focusEdge() : restingEdge();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::white);
    painter.setPen(QPen(edge, strong ? 2.0 : 1.0));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(rect().translated(0, isDown() ? 1 : 0), Qt::AlignCenter | Qt::TextShowMnemonic,
                     text());
}

} // namespace vexa
