#include "controls/plain_text.h"

#include <QAction>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>
#include <QStringList>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

namespace vexa {

namespace {

constexpr qsizetype longestLine = 100;
constexpr qsizetype mostLines = 20;

/// The length of the first line, broken at the last space if that is in its second half.
qsizetype lengthOfFirstLine(const QString& text) {
    if (text.size() <= longestLine)
        return text.size();
    const auto space = text.lastIndexOf(QLatin1Char(' '), longestLine - 1);
    if (space >= longestLine / 2)
        return space + 1;
    return text[longestLine].isLowSurrogate() ? longestLine - 1 : longestLine;
}

QString folded(const QString& text) {
    QStringList lines;
    for (auto line : text.split(QLatin1Char('\n')))
        do {
            if (lines.size() == mostLines)
                return lines.join(QLatin1Char('\n')) + QChar(u'…');
            const auto length = lengthOfFirstLine(line);
            lines += line.left(length);
            line.remove(0, length);
        } while (!line.isEmpty());
    return lines.join(QLatin1Char('\n'));
}

/// A tool tip cannot be set to plain text: text that would be taken for HTML is converted to HTML
/// that shows it literally.
QString toolTipOf(const QString& text) {
    const auto lines = folded(text);
    return Qt::mightBeRichText(lines) ? Qt::convertFromPlainText(lines, Qt::WhiteSpacePre) : lines;
}

} // namespace

void setPlainToolTip(QWidget& widget, const QString& text) { widget.setToolTip(toolTipOf(text)); }
void setPlainToolTip(QAction& action, const QString& text) { action.setToolTip(toolTipOf(text)); }

void showPlainToolTip(QWidget& widget, const QString& text, QPoint where) {
    QToolTip::showText(where, toolTipOf(text), &widget);
}
void showPlainToolTip(QWidget& widget, const QString& text) {
    showPlainToolTip(widget, text, widget.mapToGlobal(widget.rect().bottomLeft()));
}

QLabel* newPlainLabel(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void setPlainText(QMessageBox& box, const QString& text, const QString& information) {
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setInformativeText(information);
    for (auto* label : box.findChildren<QLabel*>()) // the box's own setting applies to only one
        label->setTextFormat(Qt::PlainText);
}

void setPlainWindowTitle(QWidget& window, const QString& title) {
    auto text = singleLine(title); // a single "[*]" would be the modified marker
    window.setWindowTitle(text.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

QString plainMenuText(const QString& text) {
    auto shown = text;
    shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
    const auto isControl = [](QChar letter) { return letter.category() == QChar::Other_Control; };
    std::ranges::replace_if(shown, isControl, QChar(QChar::ReplacementCharacter));
    return shown;
}

QString singleLine(QString text) {
    static const QRegularExpression lineBreak(QStringLiteral("\\R"));
    return text.replace(lineBreak, QStringLiteral(" "));
}

} // namespace vexa
