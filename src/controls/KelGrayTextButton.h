#pragma once

#include <QPushButton>

namespace vexa {

/// A push button with a gray caption, on white whatever its state: the gray reads on nothing
/// darker. A click leaves the keyboard where it is.
class KelGrayTextButton : public QPushButton {
    Q_OBJECT

public:
    explicit KelGrayTextButton(QWidget* parent = nullptr);

    /// Call once, when the window description has been loaded.
    virtual void awakeFromNib();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vexa
