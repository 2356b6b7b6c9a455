#include "controls/BatchRowDelegate.h"

#include "controls/BatchTableModel.h"
#include "controls/plain_text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

namespace vexa {

namespace {

constexpr int signSide = 10;

StripeMark markOf(const QModelIndex& index) {
    return static_cast<StripeMark>(index.data(BatchTableModel::markRole).toInt());
}

bool isDark(const QPalette& palette) { return palette.color(QPalette::Base).lightness() < 128; }

QColor markColor(const QPalette& palette) {
    return isDark(palette) ? QColor(0x31, 0xdf, 0x1a) : QColor(0x1a, 0x7f, 0x0e);
}

QColor textColor(const QStyleOptionViewItem& option) {
    const auto group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    return option.palette.color(
        group, option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text);
}

QColor signColor(const QPalette& palette, StripeMark mark) {
    if (mark != StripeMark::stoppedHere)
        return markColor(palette);
    return isDark(palette) ? QColor(0xff, 0xb3, 0x2e) : QColor(0x9a, 0x5b, 0x00);
}

/// A triangle, a tick, or the square of the transport's stop button.
void paintSign(QPainter& painter, const QRectF& square, StripeMark mark, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width(), square.height());
    if (mark == StripeMark::underWay) {
        QPainterPath triangle;
        triangle.addPolygon(QPolygonF{{{0.1, 0.0}, {1.0, 0.5}, {0.1, 1.0}}});
        painter.fillPath(triangle, color);
    } else if (mark == StripeMark::stoppedHere) {
        painter.fillRect(QRectF(0.1, 0.1, 0.8, 0.8), color);
    } else {
        painter.setPen(QPen(color, 0.18, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{{{0.05, 0.55}, {0.35, 0.85}, {0.95, 0.15}}});
    }
    painter.restore();
}

} // namespace

void BatchRowDelegate::initStyleOption(QStyleOptionViewItem* option,
                                       const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto mark = markOf(index);
    if (mark == StripeMark::underWay) {
        auto tint = markColor(option->palette);
        tint.setAlphaF(0.16F);
        option->backgroundBrush = tint;
        option->font.setBold(true);
        option->fontMetrics = QFontMetrics(option->font);
    } else if (mark == StripeMark::finished) {
        auto paler = option->palette.color(QPalette::Text);
        paler.setAlphaF(0.65F);
        option->palette.setColor(QPalette::Text, paler);
    }
}

void BatchRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    auto cell = option;
    initStyleOption(&cell, index);
    const auto* style = cell.widget ? cell.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);

    const bool selected = cell.state & QStyle::State_Selected;
    if (cell.state & QStyle::State_HasFocus && !selected) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(cell);
        style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, cell.widget);
    }
    QRect content = cell.rect.adjusted(m_spacing, 0, 0, 0);
    const auto mark = markOf(index);
    if (index.column() == 0 && mark != StripeMark::none) {
        content.setRight(content.right() - signWidth);
        const QRectF square(content.right() + 1,
                            cell.rect.y() + (cell.rect.height() - signSide) / 2.0, signSide,
                            signSide);
        paintSign(*painter, square, mark,
                  selected ? textColor(cell) : signColor(cell.palette, mark));
    }
    painter->setFont(cell.font);
    painter->setPen(textColor(cell));
    painter->drawText(content, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      cell.fontMetrics.elidedText(cell.text, Qt::ElideRight, content.width()));
}

void BatchRowDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const auto* line = qobject_cast<QLineEdit*>(editor);
    if (line && (line->isModified() || !line->text().isEmpty()))
        return;
    QStyledItemDelegate::setEditorData(editor, index);
}

void BatchRowDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const {
    constexpr int lineEditMargin = 2;
    editor->setGeometry(option.rect.adjusted(m_spacing - lineEditMargin, 0, 0, 0));
}

bool BatchRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    auto cell = option;
    initStyleOption(&cell, index);
    const int sign = index.column() == 0 ? signWidth : 0;
    const int room = option.rect.width() - m_spacing - sign;
    const bool fits = cell.fontMetrics.horizontalAdvance(cell.text) <= room;
    showPlainToolTip(*view, fits ? QString() : cell.text, event->globalPos());
    return true;
}

} // namespace vexa
