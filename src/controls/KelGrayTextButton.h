#pragma once

#include <QPushButton>

namespace vexa {

/// A push button with a gray caption.
class KelGrayTextButton : public QPushButton {
    Q_OBJECT

public:
    explicit KelGrayTextButton(QWidget* parent = nullptr) : QPushButton(parent) {}

    /// Call once, when the window description has been loaded.
    virtual void awakeFromNib();
};

} // namespace vexa
