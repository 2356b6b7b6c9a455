#pragma once

#include "controls/AccessibleReading.h"
#include "engine/run_line.h"

#include <QWidget>

namespace vexa {

class ElidedLabel;

/// Shows the run on the clock's dark ground. The first line, in large type, has the state as a
/// shape and in words, the current item's title and the time left; the rest is below. In a narrow
/// window, titles are cut first.
class RunLineView : public QWidget, public Reading {
    Q_OBJECT
    Q_PROPERTY(double scale READ scale WRITE setScale)

public:
    explicit RunLineView(QWidget* parent = nullptr);

    /// Shows the title of the current item.
    ElidedLabel& title() { return m_title; }
    void tell(Phase phase, const RunLine& line);

    QString reading() const override { return m_line.sentence; }

    /// The type size of the first line, as a multiple of the window's.
    double scale() const { return m_scale; }
    void setScale(double scale);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QFont largeType() const;
    QRect shapeSquare() const;
    void placeTitle();

    ElidedLabel& m_title;
    double m_scale = 1.5;
    Phase m_phase = Phase::stopped;
    RunLine m_line;
};

} // namespace vexa
