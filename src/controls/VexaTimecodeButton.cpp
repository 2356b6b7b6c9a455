#include "controls/VexaTimecodeButton.h"

#include "controls/clipboard_text.h"
#include "controls/key_characters.h"
#include "controls/plain_text.h"
#include "controls/timecode_well.h"
#include "interchange/field_texts.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace vexa {

namespace {

QString colonSeparated(const std::array<char16_t, 8>& digits) {
    QString text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i != 0 && i % 2 == 0)
            text += QLatin1Char(':');
        text += QChar(digits[i]);
    }
    return text;
}

bool isAsciiDigit(QChar letter) { return letter >= u'0' && letter <= u'9'; }

/// Platforms differ in the text of editing keys.
QString charactersOf(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Backspace:
        return QChar(typed::backspace);
    case Qt::Key_Delete:
        return QChar(typed::forwardDelete);
    case Qt::Key_Enter:
        return QChar(typed::enter);
    case Qt::Key_Return:
        return QChar(typed::carriageReturn);
    case Qt::Key_Tab:
        return QChar(typed::tab);
    default:
        return event.text();
    }
}

} // namespace

VexaTimecodeButton::VexaTimecodeButton(QWidget* parent) : KelGrayTextButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setTitleFromTimeFields();
    initInputBuffer();
}

void VexaTimecodeButton::awakeFromNib() {
    m_normalColor = QColor::fromRgbF(0.541F, 0.541F, 0.541F);
    m_hiliteColor = QColor::fromRgbF(0.192F, 0.875F, 0.102F);
    setChecked(false);
    initInputBuffer();
    m_firstKey = true;
}

void VexaTimecodeButton::setState(int state) {
    if (!isEnabled()) {
        setChecked(state != 0);
    } else if (state != 0) {
        setChecked(true);
        m_firstKey = true;
        initInputBuffer();
    } else if (validate()) {
        setChecked(false);
        setTitleFromTimeFields();
        initInputBuffer();
        tellTime();
        m_firstKey = true;
    }
}

void VexaTimecodeButton::nextCheckState() { setState(isChecked() ? 0 : 1); }

void VexaTimecodeButton::checkStateSet() {
    QPushButton::checkStateSet();
    refresh();
}

bool VexaTimecodeButton::handleKey(const QString& characters) {
    if (characters.size() != 1)
        return false;
    const auto character = characters.front().unicode();
    switch (character) {
    case typed::backspace:
    case typed::forwardDelete:
        beginTyping();
        return handleDelete();
    case typed::enter:
    case typed::tab:
    case typed::carriageReturn:
        return validateAndResign();
    default:
        if (character < u'0' || character > u'9')
            return false;
        beginTyping();
        return handleDigit(characters.front());
    }
}

void VexaTimecodeButton::beginTyping() {
    if (m_firstKey)
        clearInputBuffer();
    m_firstKey = false;
}

bool VexaTimecodeButton::handleDigit(QChar digit) {
    std::shift_left(m_inputBuffer.begin(), m_inputBuffer.end(), 1);
    m_inputBuffer.back() = digit.unicode();
    displayInput();
    return true;
}

bool VexaTimecodeButton::handleDelete() {
    std::shift_right(m_inputBuffer.begin(), m_inputBuffer.end(), 1);
    m_inputBuffer.front() = u'0';
    displayInput();
    return true;
}

void VexaTimecodeButton::paste() {
    constexpr qsizetype longestQuote = 40;
    if (!isEnabled() || m_tag == time_tag::current)
        return;
    const auto* offered = QApplication::clipboard()->mimeData();
    const auto text = offered ? clipboardText(*offered) : QString();
    const bool hasAllDigits = std::ranges::count_if(text, isAsciiDigit) == digitCount;
    const auto written = hasAllDigits ? timeFromText(text) : std::nullopt;
    if (!written) {
        showPlainToolTip(*this, tr("“%1” is not a time").arg(text.left(longestQuote)));
        return;
    }
    if (!isChecked())
        click();
    beginAfresh();
    beginTyping();
    for (const auto character : timecodeText(written->time))
        if (character != ':')
            handleDigit(QLatin1Char(character));
}

Timecode VexaTimecodeButton::typedTime() const {
    const auto pair = [this](std::size_t first) {
        return std::uint64_t{10} * (m_inputBuffer[first] - u'0') +
               (m_inputBuffer[first + 1] - u'0');
    };
    return {pair(0), pair(2), pair(4), pair(6)};
}

bool VexaTimecodeButton::validate() {
    const auto typed = typedTime();
    m_refusal = QString::fromStdString(vexa::refusal(typed, *m_rate));
    refresh();
    // A rejected entry overwrites the fields up to the first one out of range.
    m_time.hours = typed.hours;
    if (typed.hours > 23)
        return false;
    m_time.minutes = typed.minutes;
    if (typed.minutes > 59)
        return false;
    m_time.seconds = typed.seconds;
    if (typed.seconds > 59)
        return false;
    m_time.frames = typed.frames;
    return m_refusal.isEmpty();
}

bool VexaTimecodeButton::validateAndResign() {
    if (!validate())
        return false;
    setTitleFromTimeFields();
    setState(0);
    initInputBuffer();
    tellTime();
    return true;
}

void VexaTimecodeButton::clearInputBuffer() { m_inputBuffer.fill(u'0'); }

void VexaTimecodeButton::initInputBuffer() {
    const auto& time = m_time;
    std::size_t i = 0;
    for (const auto field : {time.hours, time.minutes, time.seconds, time.frames}) {
        m_inputBuffer[i++] = static_cast<char16_t>(u'0' + field / 10);
        m_inputBuffer[i++] = static_cast<char16_t>(u'0' + field % 10);
    }
}

void VexaTimecodeButton::displayInput() {
    m_refusal.clear();
    m_alternateTitle = colonSeparated(m_inputBuffer);
    refresh();
}

void VexaTimecodeButton::setTitleFromTimeFields() {
    m_title = QString::fromStdString(timecodeText(m_time));
    m_alternateTitle = m_title;
    m_refusal.clear();
    refresh();
}

void VexaTimecodeButton::setBcdValue(std::uint64_t value) {
    m_time = unpack(static_cast<PackedTimecode>(value));
    setTitleFromTimeFields();
    initInputBuffer();
}

void VexaTimecodeButton::incFrames(std::uint64_t count) {
    m_time = advanced(m_time, count, *m_rate);
    setTitleFromTimeFields();
    initInputBuffer();
}

void VexaTimecodeButton::tellTime() { Q_EMIT timeChanged(m_tag, bcdValue()); }

void VexaTimecodeButton::refresh() {
    const auto& shown = shownText();
    setAccessibleDescription(m_refusal.isEmpty() ? shown
                                                 : QStringLiteral("%1, %2").arg(shown, m_refusal));
    const TimecodeWell well(rect());
    if (shown.size() != m_drawnText.size())
        update();
    else
        for (qsizetype i = 0; i < shown.size(); ++i)
            if (shown[i] != m_drawnText[i])
                update(well.cell(i));
    m_drawnText = shown;
    Q_EMIT shownChanged();
}

QString VexaTimecodeButton::entryConcern() const {
    if (!isChecked() || m_firstKey)
        return {};
    return m_refusal.isEmpty() ? tr("%1 not taken: press Return").arg(accessibleName()) : m_refusal;
}

bool VexaTimecodeButton::event(QEvent* event) {
    // Otherwise Tab would move the focus before keyPressEvent().
    if (event->type() == QEvent::KeyPress && isEnabled() && isChecked()) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier &&
            handleKey(charactersOf(*key)))
            return true;
    }
    return KelGrayTextButton::event(event);
}

void VexaTimecodeButton::keyPressEvent(QKeyEvent* event) {
    if (isEnabled() && isChecked()) {
        if (event->matches(QKeySequence::Paste)) {
            paste();
            return;
        }
        const bool isText =
            !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
        if (isText && handleKey(charactersOf(*event)))
            return;
    }
    KelGrayTextButton::keyPressEvent(event);
}

void VexaTimecodeButton::focusInEvent(QFocusEvent* event) {
    KelGrayTextButton::focusInEvent(event);
    // Closing a menu or another window returns a focus that was never given up.
    switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return;
    default:
        m_firstKey = true;
        initInputBuffer();
        displayInput(); // Return takes what is shown
    }
}

void VexaTimecodeButton::setDigitScale(double scale) {
    m_digitScale = scale;
    updateGeometry();
}

QSize VexaTimecodeButton::sizeHint() const {
    return TimecodeWell::sizeForDigits(font(), m_digitScale);
}

QSize VexaTimecodeButton::minimumSizeHint() const {
    constexpr double share = 0.7; // for small screens; the digits shrink, too
    const auto full = sizeHint();
    return {qCeil(share * full.width()), qCeil(share * full.height())};
}

void VexaTimecodeButton::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const TimecodeWell well(rect());
    well.paintGround(painter, isChecked() ? m_hiliteColor : QColor(), hasFocus());
    painter.setPen(isChecked() ? m_hiliteColor : m_normalColor);
    const auto& text = shownText();
    for (qsizetype i = 0; i < text.size(); ++i)
        if (event->region().intersects(well.cell(i)))
            well.paintCharacter(painter, i, text[i]);
}

} // namespace vexa
