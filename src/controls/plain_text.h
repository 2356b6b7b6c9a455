#pragma once

#include <QPoint>
#include <QString>

class QAction;
class QLabel;
class QMessageBox;
class QWidget;

namespace vexa {

// File names, titles and device names come from anywhere. Qt renders text that looks like HTML as
// HTML, and loads the images it refers to. These functions show such text literally.

/// Folds long lines, and cuts off what would not fit on a screen.
void setPlainToolTip(QWidget& widget, const QString& text);
void setPlainToolTip(QAction& action, const QString& text);

/// Shows it now, at a point of the screen or below the widget; an empty text hides it.
void showPlainToolTip(QWidget& widget, const QString& text, QPoint where);
void showPlainToolTip(QWidget& widget, const QString& text);

/// A label of one or more lines.
QLabel* newPlainLabel(const QString& text);

/// Sets both texts of a message box.
void setPlainText(QMessageBox& box, const QString& text, const QString& information = {});

void setPlainWindowTitle(QWidget& window, const QString& title);

/// The text of a menu item, with "&" and control characters shown literally.
QString plainMenuText(const QString& text);

/// The text on one line, with each line break as a space.
QString singleLine(QString text);

} // namespace vexa
