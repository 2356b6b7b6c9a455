#pragma once

#include "controls/ClockDisplay.h"
#include "controls/LampBar.h"
#include "controls/RunLineView.h"

#include <QGridLayout>

namespace vexa {

/// The clock, and the state of the run in lamps and in words, on a dark ground. Readable from some
/// steps away.
class DisplayPanel : public QWidget {
    Q_OBJECT

public:
    explicit DisplayPanel(QWidget* parent = nullptr);

    ClockDisplay& clock() { return m_clock; }
    RunLineView& runLine() { return m_runLine; }
    void tell(Phase phase, const RunLine& line);

    /// What the lamps, the margins and the words are measured by.
    void setType(const QFont& font);
    /// Lets the clock take that height, but no more than its digits need where the panel has that
    /// width; gives the panel a rim. Without a limit, it fills its place.
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
