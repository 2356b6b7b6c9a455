#pragma once

#include "controls/KelGrayTextButton.h"
#include "engine/control_outlets.h"
#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <QColor>

#include <array>

namespace vexa {

/// A time display that can be typed into. Off, it shows the time it holds, in gray. On, it is in
/// entry: digits come in from the right, in green, and the first key clears what stood there.
/// Return, Enter, Tab or switching it off commits a valid entry; an invalid one stays in entry.
class VexaTimecodeButton : public KelGrayTextButton, public TimecodeEntry {
    Q_OBJECT
    Q_PROPERTY(int tag READ tag WRITE setTag)
    Q_PROPERTY(double digitScale READ digitScale WRITE setDigitScale)

public:
    explicit VexaTimecodeButton(QWidget* parent = nullptr);

    void awakeFromNib() override;

    /// Tells the display's times apart; one of time_tag.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

    // Counts, not digits. A rejected entry can leave them out of range.
    std::uint64_t hours() const { return m_time.hours; }
    std::uint64_t minutes() const { return m_time.minutes; }
    std::uint64_t seconds() const { return m_time.seconds; }
    std::uint64_t frames() const { return m_time.frames; }
    PackedTimecode bcdValue() const { return pack(m_time); }

    void setBcdValue(std::uint64_t value) override;
    /// Moves the time on by that many frames, with carries, wrap and drop-frame numbers.
    void incFrames(std::uint64_t count);
    void setFrameRate(const FrameRate& rate) override { m_rate = &rate; }
    void frameRateChanged() override { incFrames(0); }

    /// Goes through validation when it ends an entry: with an invalid one, nothing happens. Tells
    /// of the time otherwise.
    void setState(int state) override;
    int state() const override { return isChecked() ? 1 : 0; }

    /// One key, as the character it types. False when the key is none of the entry's.
    bool handleKey(const QString& characters);
    /// Lets the next digit or delete key clear what was typed, as if the entry were to begin.
    void beginAfresh() { m_firstKey = true; }
    bool validateAndResign();
    /// Types the time on the clipboard, and begins an entry where none is under way; says so where
    /// there is no time. For displays that can be typed into.
    void paste();
    /// Parses the typed digits into the time fields, hours first, and stops at the first field
    /// that is out of range at the rate: fields up to and including that one are then
    /// overwritten, though the title still shows the time from before.
    bool validate();
    /// Why the time that is shown was refused, in words; empty when it was not. Assistive
    /// technology is told with the time.
    const QString& refusal() const { return m_refusal; }
    /// Why what was typed has not been taken, in words; empty when nothing waits to be taken.
    QString entryConcern() const;

    QColor normalColor() const { return m_normalColor; }
    QColor hiliteColor() const { return m_hiliteColor; }
    const QString& title() const { return m_title; }
    const QString& alternateTitle() const { return m_alternateTitle; }
    /// What can be read now: the alternate title in entry, otherwise the title.
    const QString& shownText() const { return isChecked() ? m_alternateTitle : m_title; }

    /// How large the digits are to be, as a multiple of the window's type.
    double digitScale() const { return m_digitScale; }
    void setDigitScale(double scale);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A time was entered: packed timecode.
    void timeChanged(int tag, std::uint64_t entered);
    /// What can be read, or why it was refused, has changed.
    void shownChanged();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override;
    void checkStateSet() override;

private:
    static constexpr std::size_t digitCount = 8;

    bool handleDigit(QChar digit);
    bool handleDelete();
    void beginTyping();
    void clearInputBuffer();
    Timecode typedTime() const;
    void initInputBuffer();
    void displayInput();
    void tellTime();
    void setTitleFromTimeFields();
    void refresh();

    int m_tag = 0;
    Timecode m_time;
    const FrameRate* m_rate = &frameRateForCode(rate::fps30);
    QColor m_normalColor;
    QColor m_hiliteColor;
    double m_digitScale = 1;
    bool m_firstKey = true;
    std::array<char16_t, digitCount> m_inputBuffer{};
    QString m_title;
    QString m_alternateTitle;
    QString m_refusal;
    QString m_drawnText;
};

} // namespace vexa
