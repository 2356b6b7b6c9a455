#include "controls/gray_caption.h"

#include <QPalette>
#include <QWidget>

namespace vexa {

QColor captionGray() { return QColor::fromRgbF(0.455F, 0.455F, 0.455F); }

void setGrayCaption(QWidget& control) {
    auto palette = control.palette();
    for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text}) {
        palette.setColor(QPalette::Active, role, captionGray());
        palette.setColor(QPalette::Inactive, role, captionGray());
        // Disabled controls must be recognizable at a glance.
        palette.setColor(QPalette::Disabled, role, QColor::fromRgbF(0.73F, 0.73F, 0.73F));
    }
    control.setPalette(palette);
}

} // namespace vexa
