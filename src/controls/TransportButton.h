#pragma once

#include <QPushButton>

namespace vexa {

/// A transport button. Its tag selects its sign: a square, a triangle, two bars.
class TransportButton : public QPushButton {
    Q_OBJECT

public:
    explicit TransportButton(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Arrow keys only move the focus within the group. By default they would also press the button
    /// they reach, and moving around the window must not start a tape.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QSize sizeForSign(int heights) const;
    int captionHeight() const;
    void moveFocus(int step);
};

} // namespace vexa
