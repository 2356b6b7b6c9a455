#pragma once

#include <QLabel>

namespace vexa {

/// A line of plain text, elided at its end to the width available. However long, it widens no
/// window.
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
