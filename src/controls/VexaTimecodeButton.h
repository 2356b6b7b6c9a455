#pragma once

#include "controls/KelGrayTextButton.h"
#include "engine/control_outlets.h"
#include "timecode/frame_rate.h"
#include "timecode/timecode.h"

#include <QColor>

#include <array>

namespace vexa {

/// A time display that can be typed into. Switched off, it shows its time in gray. Switched on, it
/// takes an entry: digits come in from the right, in green, and the first key clears the old ones.
/// Return, Enter, Tab or switching it off commits a valid entry; an invalid entry stays open.
class VexaTimecodeButton : public KelGrayTextButton, public TimecodeEntry {
    Q_OBJECT
    Q_PROPERTY(int tag READ tag WRITE setTag)
    Q_PROPERTY(double digitScale READ digitScale WRITE setDigitScale)

public:
    explicit VexaTimecodeButton(QWidget* parent = nullptr);

    void awakeFromNib() override;

    /// Identifies which time it shows; one of time_tag.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

    // Field values, not digits. A rejected entry can leave them out of range.
    std::uint64_t hours() const { return m_time.hours; }
    std::uint64_t minutes() const { return m_time.minutes; }
    std::uint64_t seconds() const { return m_time.seconds; }
    std::uint64_t frames() const { return m_time.frames; }
    PackedTimecode bcdValue() const { return pack(m_time); }

    void setBcdValue(std::uint64_t value) override;
    /// Advances the time by that many frames, with carries, wrap at midnight and drop-frame
    /// numbers.
    void incFrames(std::uint64_t count);
    void setFrameRate(const FrameRate& rate) override { m_rate = &rate; }
    void frameRateChanged() override { incFrames(0); }

    /// Validates when it ends an entry: an invalid entry stays open. Otherwise emits timeChanged().
    void setState(int state) override;
    int state() const override { return isChecked() ? 1 : 0; }

    /// Handles one key, given as the character it types. False if an entry has no use for it.
    bool handleKey(const QString& characters);
    /// The next digit or delete key clears what was typed, as at the start of an entry.
    void beginAfresh() { m_firstKey = true; }
    bool validateAndResign();
    /// Types the time on the clipboard, starting an entry if none is open. If the clipboard holds
    /// no time, the display says so. Only for displays that can be typed into.
    void paste();
    /// Parses the typed digits into the time fields, hours first, up to the first field out of
    /// range at the rate. Fields up to and including that one are overwritten, though the title
    /// still shows the old time.
    bool validate();
    /// Why the time shown was refused, in words; empty if it was not. Assistive technology is told
    /// this along with the time.
    const QString& refusal() const { return m_refusal; }
    /// Why the entry has not been committed, in words; empty if no entry is pending.
    QString entryConcern() const;

    QColor normalColor() const { return m_normalColor; }
    QColor hiliteColor() const { return m_hiliteColor; }
    const QString& title() const { return m_title; }
    const QString& alternateTitle() const { return m_alternateTitle; }
    /// The text on display: the alternate title during an entry, otherwise the title.
    const QString& shownText() const { return isChecked() ? m_alternateTitle : m_title; }

    /// The preferred digit size, as a multiple of the window's type size.
    double digitScale() const { return m_digitScale; }
    void setDigitScale(double scale);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A time was entered: packed timecode.
    void timeChanged(int tag, std::uint64_t entered);
    /// The text on display, or the reason for its refusal, has changed.
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
