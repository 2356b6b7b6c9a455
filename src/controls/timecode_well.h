#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QSize>

class QPainter;

namespace vexa {

/// The look of a time display: a dark well with fixed-width digits, as large as the rectangle
/// allows.
class TimecodeWell {
public:
    /// How much of the height the digits take: inside a rim, or all of it.
    enum class Digits { withinRim, fillHeight };

    explicit TimecodeWell(const QRect& rectangle, Digits room = Digits::withinRim);

    /// The ground for light text in this window.
    static QColor ground() { return {0x10, 0x12, 0x13}; }

    /// The size at which the digits are `scale` times as large as that font's.
    static QSize sizeForDigits(const QFont& font, double scale, Digits room = Digits::withinRim);

    /// The height at which digits in that width reach their largest size.
    static int heightForWidth(int width, Digits room);

    /// The rectangle of the character at a position of "hh:mm:ss:ff".
    QRect cell(qsizetype position) const;
    /// The part of the cell that a digit can reach.
    QRect ink(qsizetype position) const;

    const QFont& font() const { return m_font; }

    /// edge: the colour of the rim; invalid for the resting colour. The focused display has a ring
    /// around the rim.
    void paintGround(QPainter& painter, const QColor& edge, bool focused) const;
    void paintCharacter(QPainter& painter, qsizetype position, QChar character) const;

private:
    QRect m_rectangle;
    QFont m_font;
    qreal m_digitWidth;
    qreal m_left;
};

} // namespace vexa
