#include "controls/DisplayPanel.h"

#include "controls/timecode_well.h"

#include <QPainter>

#include <algorithm>

namespace vexa {

DisplayPanel::DisplayPanel(QWidget* parent)
    : QWidget(parent),
      m_lamps(*new LampBar(this)),
      m_clock(*new ClockDisplay(this)),
      m_runLine(*new RunLineView(this)) {
    m_clock.setAccessibleName(tr("Current time"));
    m_runLine.setAccessibleName(tr("Progress"));
    m_layout.addWidget(&m_lamps, 0, 0, 2, 1);
    m_layout.addWidget(&m_clock, 0, 1);
    m_layout.addWidget(&m_runLine, 1, 1);
    m_layout.setColumnStretch(1, 1);
    m_layout.setRowStretch(0, 1);
    setType(font());
}

void DisplayPanel::setType(const QFont& font) {
    setFont(font);
    const int line = fontMetrics().height();
    const int margin = line * 2 / 3;
    m_layout.setContentsMargins(margin, margin, margin, line / 2);
    m_layout.setHorizontalSpacing(margin);
    m_layout.setVerticalSpacing(line / 4);
}

void DisplayPanel::tell(Phase phase, const RunLine& line) {
    m_lamps.setPhase(phase);
    m_runLine.tell(phase, line);
}

void DisplayPanel::limitClockHeight(int height, int panelWidth) {
    m_hasRim = true;
    const auto margins = m_layout.contentsMargins();
    const int clockWidth = panelWidth - margins.left() - margins.right() -
                           m_lamps.sizeHint().width() - m_layout.horizontalSpacing();
    const int around = sizeHint().height() - m_clock.sizeHint().height();
    setMaximumHeight(around + std::min(height, ClockDisplay::heightForDigits(clockWidth)));
}

void DisplayPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_hasRim)
        TimecodeWell(rect()).paintGround(painter, {}, false);
    else
        painter.fillRect(rect(), TimecodeWell::ground());
}

} // namespace vexa
