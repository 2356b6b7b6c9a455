#include "reel_sheet/sheet_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace vexa {

namespace {

constexpr qsizetype mostLetters = 300;

/// The text without line breaks and other control characters, limited to a readable length.
QString printed(const QString& text) {
    auto line = text.size() > mostLetters ? text.left(mostLetters) + QChar(u'…') : text;
    std::ranges::replace_if(
        line, [](QChar letter) { return letter.category() == QChar::Other_Control; }, QChar(u' '));
    return line.trimmed();
}

void layOut(QTextLayout& layout, qreal width) {
    layout.setFont(sheetFont(sheetTextSize));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, (layout.lineCount() - 1) * sheetLineHeight()});
    }
    layout.endLayout();
}

} // namespace

QFont sheetFont(int size, QFont::Weight weight) {
    QFont font;
    font.setPixelSize(size);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

qreal sheetLineHeight() { return QFontMetricsF(sheetFont(sheetTextSize)).height(); }

qreal sheetTextHeight(const QString& text, qreal width) {
    QTextLayout layout(printed(text));
    layOut(layout, width);
    return std::max(layout.lineCount(), 1) * sheetLineHeight();
}

void paintSheetText(QPainter& painter, QPointF corner, const QString& text, qreal width) {
    QTextLayout layout(printed(text));
    layOut(layout, width);
    layout.draw(&painter, corner);
}

QString elidedSheetText(const QString& text, qreal width) {
    return QFontMetricsF(sheetFont(9)).elidedText(printed(text), Qt::ElideMiddle, width);
}

} // namespace vexa
