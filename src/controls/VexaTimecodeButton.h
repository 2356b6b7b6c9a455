#pragma once

#include "controls/KelGrayTextButton.h"
#include "engine/TimecodeDisplay.h"

#include <QColor>

#include <array>

namespace vexa {

/// A time display that can be typed into. Off, it shows the time it holds, in gray. On, it is in
/// entry: digits come in from the right, in green, and the first key clears what stood there.
/// Return, Enter, Tab or switching it off commits a valid entry and tells the controller; an
/// invalid one stays in entry.
class VexaTimecodeButton : public KelGrayTextButton, public TimecodeDisplay {
    Q_OBJECT
    Q_PROPERTY(int tag READ tag WRITE setTag)

public:
    explicit VexaTimecodeButton(QWidget* parent = nullptr);

    void awakeFromNib() override;

    /// Goes through validation when it ends an entry: with an invalid one, nothing happens. Sends
    /// timeChanged() to the owner otherwise.
    void setState(int state) override;
    int state() const override { return isChecked() ? 1 : 0; }

    /// One key, as the character it types. False when the key is none of the entry's.
    bool handleKey(const QString& characters);
    bool validateAndResign();
    /// Parses the typed digits into the time fields, hours first, and stops at the first field
    /// that is out of range for the owner's rate: fields up to and including that one are then
    /// overwritten, though the title still shows the time from before.
    bool validate();

    QColor normalColor() const { return m_normalColor; }
    QColor hiliteColor() const { return m_hiliteColor; }
    const QString& title() const { return m_title; }
    const QString& alternateTitle() const { return m_alternateTitle; }
    /// What can be read now: the alternate title in entry, otherwise the title.
    const QString& shownText() const { return isChecked() ? m_alternateTitle : m_title; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void nextCheckState() override;
    void checkStateSet() override;
    void timeFieldsChanged() override;

private:
    static constexpr std::size_t digitCount = 8;

    bool handleDigit(QChar digit);
    bool handleDelete();
    void beginTyping();
    void clearInputBuffer();
    void initInputBuffer();
    void displayInput();
    void paste();
    void setTitleFromTimeFields();
    void refresh();

    QColor m_normalColor;
    QColor m_hiliteColor;
    bool m_firstKey = true;
    std::array<char16_t, digitCount> m_inputBuffer{};
    QString m_title;
    QString m_alternateTitle;
    QString m_drawnText;
};

} // namespace vexa
