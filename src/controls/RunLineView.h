#pragma once

#include "controls/AccessibleReading.h"
#include "engine/run_line.h"

#include <QWidget>

namespace vexa {

class ElidedLabel;

/// Tells of the run on the dark ground of the clock: its state by a shape and in words, the title
/// of the item under way and the time left in large type, and what else there is below them. Where
/// it is narrow, titles are cut first.
class RunLineView : public QWidget, public Reading {
    Q_OBJECT
    Q_PROPERTY(double scale READ scale WRITE setScale)

public:
    explicit RunLineView(QWidget* parent = nullptr);

    /// Where the title of the item under way shows.
    ElidedLabel& title() { return m_title; }
    void tell(Phase phase, const RunLine& line);

    QString reading() const override { return m_line.sentence; }

    /// How large the type of the first line is, as a multiple of the window's.
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
