#pragma once

#include <QSpinBox>

namespace vexa {

/// A spin box without the field: two arrows, for a number shown elsewhere.
class Stepper : public QSpinBox {
    Q_OBJECT

public:
    explicit Stepper(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace vexa
