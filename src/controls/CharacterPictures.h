#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>

#include <map>
#include <utility>

class QPainter;

namespace vexa {

class TimecodeWell;

/// Paints the characters of a time display and the ground behind them. Keeps a picture of each:
/// for large type, copying one takes far less time than drawing the character.
class CharacterPictures {
public:
    /// Fills the well's ink() at that position.
    void paint(QPainter& painter, const TimecodeWell& well, const QColor& color, qsizetype position,
               QChar character);

private:
    struct Look {
        QFont font;
        QColor color;
        qreal pixelRatio = 0;
        int height = 0;

        bool operator==(const Look&) const = default;
    };

    Look m_look;                                         ///< of all pictures
    std::map<std::pair<QChar, int>, QPixmap> m_pictures; ///< by character and width
};

} // namespace vexa
