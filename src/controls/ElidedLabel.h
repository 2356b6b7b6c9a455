#pragma once

#include <QLabel>

namespace vexa {

/// A line of plain text that takes the width it is given and ends in an ellipsis where it is
/// longer. However long, it widens no window.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vexa
