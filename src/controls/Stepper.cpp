#include "controls/Stepper.h"

#include <QLineEdit>
#include <QStyleOptionSpinBox>

namespace vexa {

Stepper::Stepper(QWidget* parent) : QSpinBox(parent) {
    lineEdit()->setReadOnly(true);
    lineEdit()->hide();
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Stepper::sizeHint() const {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const auto arrow =
        style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
    const int frame = style()->pixelMetric(QStyle::PM_SpinBoxFrameWidth, &option, this);
    return {arrow.width() + frame, QSpinBox::sizeHint().height()};
}

} // namespace vexa
