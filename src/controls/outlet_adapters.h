#pragma once

#include "controls/plain_text.h"
#include "engine/outlets.h"

#include <QAbstractButton>
#include <QLabel>

namespace vexa {

// Adapts the platform's widgets to the controller's outlets.

class ButtonOutlet final : public Button {
public:
    explicit ButtonOutlet(QAbstractButton& button) : m_button(button) {}
    void setState(bool on) override { m_button.setChecked(on); }
    bool state() const override { return m_button.isChecked(); }
    void setEnabled(bool enabled) override { m_button.setEnabled(enabled); }
    void setHidden(bool hidden) override { m_button.setHidden(hidden); }
    void setToolTip(const QString& text) override { setPlainToolTip(m_button, text); }

private:
    QAbstractButton& m_button;
};

/// A label shows its text on one line, and gives it to assistive technology as its description; its
/// name stays. The tool tip has the text unchanged.
class TextFieldOutlet final : public TextField {
public:
    explicit TextFieldOutlet(QLabel& label) : m_label(label) {}
    void setStringValue(const QString& text) override {
        const auto line = singleLine(text);
        m_label.setText(line);
        m_label.setAccessibleDescription(line);
        setPlainToolTip(m_label, text);
    }

private:
    QLabel& m_label;
};

class WindowTitleOutlet final : public WindowTitle {
public:
    explicit WindowTitleOutlet(QWidget& window) : m_window(window) {}
    void setTitle(const QString& title) override { setPlainWindowTitle(m_window, title); }

private:
    QWidget& m_window;
};

} // namespace vexa
