#pragma once

#include "controls/AccessibleReading.h"

#include <QPushButton>

namespace vexa {

/// A button that shows where messages go, with a lamp: solid if the destination is available.
class DestinationButton : public QPushButton, public Reading {
    Q_OBJECT

public:
    explicit DestinationButton(QWidget* parent = nullptr);

    void tell(const QString& text, bool isThere);
    QString reading() const override { return text(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int lampSide() const { return fontMetrics().xHeight() + 2; }

    bool m_isThere = false;
};

} // namespace vexa
