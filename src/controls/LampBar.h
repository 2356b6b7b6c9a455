#pragma once

#include "stripe/Progress.h"

#include <QBasicTimer>
#include <QWidget>

namespace vexa {

/// Three lamps in a column that show the state of a run from a distance, by colour and position.
/// Red at the top: a reel is due. Amber in the middle: a pause, blinking between two items. Green
/// at the bottom: playing. All are off while stopped.
class LampBar : public QWidget {
    Q_OBJECT

public:
    explicit LampBar(QWidget* parent = nullptr);

    void setPhase(Phase phase);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    Phase m_phase = Phase::stopped;
    bool m_isLit = true; ///< toggles while blinking
    QBasicTimer m_blink;
};

} // namespace vexa
