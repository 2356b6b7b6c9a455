#pragma once

#include <QFont>
#include <QPointF>
#include <QString>

class QPainter;

namespace vexa {

// Text of a reel sheet; lengths are in points.

inline constexpr int sheetTextSize = 8;

/// Looks the same on paper and on any screen.
QFont sheetFont(int size, QFont::Weight weight = QFont::Normal);

qreal sheetLineHeight();

/// Wraps at this width. Text after the first 300 letters is cut off.
qreal sheetTextHeight(const QString& text, qreal width);
void paintSheetText(QPainter& painter, QPointF corner, const QString& text, qreal width);

/// Fits the text into one line.
QString elidedSheetText(const QString& text, qreal width);

} // namespace vexa
