#pragma once

#include <QPushButton>

namespace vexa {

/// A button of the transport, with its sign drawn by its tag: a square, a triangle, two bars.
class TransportButton : public QPushButton {
    Q_OBJECT

public:
    explicit TransportButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Arrow keys move the focus in the group only: they would also press the button they reach,
    /// and nobody starts a tape by leafing through the window.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QSize sizeForSign(int heights) const;
    int captionHeight() const;
    void moveFocus(int step);
};

} // namespace vexa
