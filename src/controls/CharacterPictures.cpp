#include "controls/CharacterPictures.h"

#include "controls/timecode_well.h"

#include <QPainter>

#include <cmath>
#include <utility>

namespace vexa {

namespace {

void draw(QPainter& painter, const TimecodeWell& well, const QColor& color, qsizetype position,
          QChar character) {
    painter.fillRect(well.ink(position), TimecodeWell::ground());
    painter.setPen(color);
    well.paintCharacter(painter, position, character);
}

} // namespace

void CharacterPictures::paint(QPainter& painter, const TimecodeWell& well, const QColor& color,
                              qsizetype position, QChar character) {
    const auto ink = well.ink(position);
    const qreal pixelRatio = painter.deviceTransform().m11();
    // Otherwise a picture would begin between two pixels of the screen.
    const bool fillsPixels = pixelRatio == std::floor(pixelRatio);
    if (!fillsPixels)
        return draw(painter, well, color, position, character);
    Look look{well.font(), color, pixelRatio, ink.height()};
    if (m_look != look) {
        m_look = std::move(look);
        m_pictures.clear();
    }
    auto& picture = m_pictures[{character, ink.width()}];
    if (picture.isNull()) {
        picture = QPixmap(ink.size() * pixelRatio);
        picture.setDevicePixelRatio(pixelRatio);
        QPainter inPicture(&picture);
        inPicture.translate(-ink.topLeft());
        draw(inPicture, well, color, position, character);
    }
    painter.drawPixmap(ink.topLeft(), picture);
}

} // namespace vexa
