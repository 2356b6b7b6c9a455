#pragma once

#include <QPushButton>

namespace vexa {

/// A push button with a gray caption, always on white: the gray is not legible on anything darker.
/// A click does not take the focus.
class KelGrayTextButton : public QPushButton {
    Q_OBJECT

public:
    explicit KelGrayTextButton(QWidget* parent = nullptr);

    /// Call once, after loading the window description.
    virtual void awakeFromNib();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace vexa
