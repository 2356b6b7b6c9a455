#pragma once

#include <QFont>
#include <QPointF>
#include <QString>

class QPainter;

namespace vexa {

// Text of a reel sheet; lengths are in points.

inline constexpr int sheetTextSize = 8;

/// The same on paper as on any screen.
QFont sheetFont(int size, QFont::Weight weight = QFont::Normal);

qreal sheetLineHeight();

/// In lines of this width. Of a text beyond 300 letters, the rest is cut off.
qreal sheetTextHeight(const QString& text, qreal width);
void paintSheetText(QPainter& painter, QPointF corner, const QString& text, qreal width);

/// In one line.
QString elidedSheetText(const QString& text, qreal width);

} // namespace vexa
