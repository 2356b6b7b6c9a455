#pragma once

#include <QPoint>
#include <QString>

class QAction;
class QLabel;
class QMessageBox;
class QWidget;

namespace vexa {

// File names, titles and the names of devices come from anywhere. Qt takes a text that looks like
// HTML for HTML, and loads the pictures that it refers to. What shows such a text goes through
// here, and shows it letter by letter.

/// Long lines are folded, and what would still not fit on a screen is cut off.
void setPlainToolTip(QWidget& widget, const QString& text);
void setPlainToolTip(QAction& action, const QString& text);

/// Shows it now, at a point of the screen or below the widget; an empty one ends what shows.
void showPlainToolTip(QWidget& widget, const QString& text, QPoint where);
void showPlainToolTip(QWidget& widget, const QString& text);

/// A label of one or more lines.
QLabel* newPlainLabel(const QString& text);

/// Sets both texts of a message box.
void setPlainText(QMessageBox& box, const QString& text, const QString& information = {});

void setPlainWindowTitle(QWidget& window, const QString& title);

/// The text of a menu item, with "&" and control characters as themselves.
QString plainMenuText(const QString& text);

/// The text in one line: each line break is a space.
QString singleLine(QString text);

} // namespace vexa
