#include "controls/ClockDisplay.h"

#include "controls/timecode_well.h"

#include <QPaintEvent>
#include <QPainter>
#include <QtMath>

#include <utility>

namespace vexa {

namespace {

constexpr double usualScale = 4; // times the window's type size
constexpr double leastScale = 2.6;
constexpr int secondOfQuiet = 1000; // ms

} // namespace

ClockDisplay::ClockDisplay(QWidget* parent)
    : QWidget(parent), m_text(QString::fromStdString(timecodeText(Timecode{}))) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ClockDisplay::setBcdValue(std::uint64_t value) {
    const auto time = static_cast<PackedTimecode>(value);
    if (time == m_time)
        return;
    m_time = time;
    const auto before = std::exchange(m_text, QString::fromStdString(timecodeText(time)));
    const TimecodeWell well(rect(), TimecodeWell::Digits::fillHeight);
    for (qsizetype i = 0; i < m_text.size(); ++i)
        if (m_text[i] != before[i])
            update(well.ink(i));
    tellSoon();
    Q_EMIT shown(time);
}

void ClockDisplay::follow(const ClockDisplay& other) {
    connect(&other, &ClockDisplay::shown, this, &ClockDisplay::setBcdValue);
    setBcdValue(other.m_time);
}

void ClockDisplay::tellSoon() {
    if (!QAccessible::isActive())
        return;
    m_untold = m_quiet.isActive();
    if (m_untold)
        return;
    tellReading(*this);
    m_quiet.start(secondOfQuiet, this);
}

void ClockDisplay::timerEvent(QTimerEvent*) {
    m_quiet.stop();
    if (std::exchange(m_untold, false))
        tellSoon();
}

int ClockDisplay::heightForDigits(int width) {
    return TimecodeWell::heightForWidth(width, TimecodeWell::Digits::fillHeight);
}

QSize ClockDisplay::sizeHint() const {
    return TimecodeWell::sizeForDigits(font(), usualScale, TimecodeWell::Digits::fillHeight);
}

QSize ClockDisplay::minimumSizeHint() const {
    return TimecodeWell::sizeForDigits(font(), leastScale, TimecodeWell::Digits::fillHeight);
}

void ClockDisplay::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const TimecodeWell well(rect(), TimecodeWell::Digits::fillHeight);
    auto ground = event->region();
    for (qsizetype i = 0; i < m_text.size(); ++i) {
        const auto ink = well.ink(i);
        if (event->region().intersects(ink))
            m_characters.paint(painter, well, m_digitColor, i, m_text[i]);
        ground -= ink;
    }
    for (const auto& rectangle : ground)
        painter.fillRect(rectangle, TimecodeWell::ground());
}

} // namespace vexa
