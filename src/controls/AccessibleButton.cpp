#include "controls/AccessibleButton.h"

#include <QRadioButton>

namespace vexa {

namespace {

QAccessible::Role roleOf(const QAbstractButton& button) {
    return qobject_cast<const QRadioButton*>(&button) ? QAccessible::RadioButton
                                                      : QAccessible::CheckBox;
}

QAccessibleInterface* buttonInterface(const QString&, QObject* object) {
    auto* button = qobject_cast<QAbstractButton*>(object);
    return button && button->isCheckable() ? new AccessibleButton(*button) : nullptr;
}

} // namespace

AccessibleButton::AccessibleButton(QAbstractButton& button)
    : QAccessibleWidget(&button, roleOf(button)), m_button(button) {}

void AccessibleButton::install() { QAccessible::installFactory(buttonInterface); }

QAccessible::State AccessibleButton::state() const {
    auto state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = m_button.isChecked();
    state.pressed = m_button.isDown();
    return state;
}

QStringList AccessibleButton::actionNames() const {
    auto names = QAccessibleWidget::actionNames();
    if (m_button.isEnabled())
        names = QStringList{toggleAction(), pressAction()} + names;
    return names;
}

void AccessibleButton::doAction(const QString& actionName) {
    if (actionName == toggleAction() || actionName == pressAction())
        m_button.click();
    else
        QAccessibleWidget::doAction(actionName);
}

} // namespace vexa
