#include "controls/gray_caption.h"

#include <QPalette>
#include <QWidget>

namespace vexa {

QColor captionGray() { return QColor::fromRgbF(0.455F, 0.455F, 0.455F); }

void setGrayCaption(QWidget& control) {
    auto palette = control.palette();
    // Not for disabled controls: they stay paler than those that can be used.
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text})
            palette.setColor(group, role, captionGray());
    control.setPalette(palette);
}

} // namespace vexa
