#pragma once

#include "controls/ClockDisplay.h"
#include "controls/LampBar.h"
#include "controls/RunLineView.h"

#include <QGridLayout>

namespace vexa {

/// The clock, and the state of the run in lamps and words, on a dark ground. Legible from a
/// distance.
class DisplayPanel : public QWidget {
    Q_OBJECT

public:
    explicit DisplayPanel(QWidget* parent = nullptr);

    ClockDisplay& clock() { return m_clock; }
    RunLineView& runLine() { return m_runLine; }
    void tell(Phase phase, const RunLine& line);

    /// Sets the font that the lamps, margins and words are sized by.
    void setType(const QFont& font);
    /// Limits the clock's height, at most to what its digits need in a panel of that width, and
    /// draws a rim. Without a limit, the panel fills its space.
    void limitClockHeight(int height, int panelWidth);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QGridLayout m_layout{this};
    LampBar& m_lamps;
    ClockDisplay& m_clock;
    RunLineView& m_runLine;
    bool m_hasRim = false;
};

} // namespace vexa
