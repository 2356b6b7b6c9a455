#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QSize>

class QPainter;

namespace vexa {

/// The look of a time display: a dark well with digits that keep their places whatever they are.
/// The digits are as large as the rectangle allows.
class TimecodeWell {
public:
    /// How much of the height is the digits': with a rim around them, or alone in their place.
    enum class Digits { withinRim, fillHeight };

    explicit TimecodeWell(const QRect& rectangle, Digits room = Digits::withinRim);

    /// What light text on a dark ground stands on, in this window.
    static QColor ground() { return {0x10, 0x12, 0x13}; }

    /// A size in which the digits are those of that font, that many times as large.
    static QSize sizeForDigits(const QFont& font, double scale, Digits room = Digits::withinRim);

    /// The height at which the digits of that width are as large as they get.
    static int heightForWidth(int width, Digits room);

    /// Where the character at a position of "hh:mm:ss:ff" stands.
    QRect cell(qsizetype position) const;

    /// edge: the colour of the rim, none for the resting one. The display that has the keyboard
    /// has a ring around that.
    void paintGround(QPainter& painter, const QColor& edge, bool focused) const;
    void paintCharacter(QPainter& painter, qsizetype position, QChar character) const;

private:
    QRect m_rectangle;
    QFont m_font;
    qreal m_digitWidth;
    qreal m_left;
};

} // namespace vexa
