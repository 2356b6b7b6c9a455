#pragma once

#include <QColor>

class QWidget;

namespace vexa {

/// The gray of every caption: 0.455 in each channel. Its contrast is 4.5:1 on grounds of at least
/// 98.5 % white.
QColor captionGray();

/// Gives a control's caption that gray, whatever its colour. The font stays.
void setGrayCaption(QWidget& control);

} // namespace vexa
