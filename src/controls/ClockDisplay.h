#pragma once

#include "controls/AccessibleReading.h"
#include "controls/CharacterPictures.h"
#include "engine/control_outlets.h"
#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <QBasicTimer>
#include <QColor>
#include <QWidget>

namespace vexa {

/// The running clock, with digits as large as fit. Each frame repaints only the digits that
/// changed. Assistive technology can read it at any time, and is told at most once a second.
class ClockDisplay : public QWidget, public TimecodeDisplay, public Reading {
    Q_OBJECT

public:
    explicit ClockDisplay(QWidget* parent = nullptr);

    void setBcdValue(std::uint64_t value) override;
    void setFrameRate(const FrameRate& rate) override { m_rate = &rate; }
    void frameRateChanged() override { setBcdValue(advanced(m_time, 0, *m_rate)); }

    QString reading() const override { return m_text; }

    /// Mirrors the other display from now on.
    void follow(const ClockDisplay& other);

    void setDigitColor(const QColor& color) { m_digitColor = color; }
    /// The height above which the digits stop growing at that width.
    static int heightForDigits(int width);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void shown(std::uint64_t time);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void tellSoon();

    PackedTimecode m_time = 0;
    QString m_text;
    const FrameRate* m_rate = &frameRateForCode(rate::fps30);
    QColor m_digitColor = QColor::fromRgbF(0.541F, 0.541F, 0.541F);
    CharacterPictures m_characters;
    QBasicTimer m_quiet; ///< runs for a second after telling assistive technology
    bool m_untold = false;
};

} // namespace vexa
