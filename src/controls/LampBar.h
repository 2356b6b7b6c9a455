#pragma once

#include "stripe/Progress.h"

#include <QBasicTimer>
#include <QWidget>

namespace vexa {

/// Three lamps above one another that tell the state of a run from afar, by their colour and by
/// their place: red at the top where a reel is due, amber in the middle for a pause, blinking
/// between two items, green at the bottom while a run plays. None while it is stopped.
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
    bool m_isLit = true; ///< while it blinks
    QBasicTimer m_blink;
};

} // namespace vexa
