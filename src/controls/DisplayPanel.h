#pragma once

#include "controls/ClockDisplay.h"
#include "controls/LampBar.h"
#include "controls/RunLineView.h"

#include <QGridLayout>

#include <optional>

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
    /// Lets the clock take that height, but no more than its digits need in the width there is, and
    /// gives the panel a rim. Without a limit, it fills its place.
    void limitClockHeight(int height);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void limitHeight();

    QGridLayout m_layout{this};
    LampBar& m_lamps;
    ClockDisplay& m_clock;
    RunLineView& m_runLine;
    std::optional<int> m_clockHeight;
};

} // namespace vexa
