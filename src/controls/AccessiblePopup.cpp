#include "controls/AccessiblePopup.h"

#include <QAbstractItemView>

namespace vexa {

namespace {

QAccessibleInterface* popupInterface(const QString&, QObject* object) {
    auto* popup = qobject_cast<QComboBox*>(object);
    return popup ? new AccessiblePopup(*popup) : nullptr;
}

} // namespace

AccessiblePopup::AccessiblePopup(QComboBox& popup)
    : QAccessibleWidget(&popup, QAccessible::ComboBox), m_popup(popup) {}

void AccessiblePopup::install() { QAccessible::installFactory(popupInterface); }

QAccessibleInterface* AccessiblePopup::child(int index) const {
    return index == 0 ? QAccessible::queryAccessibleInterface(m_popup.view()) : nullptr;
}

int AccessiblePopup::indexOfChild(const QAccessibleInterface* child) const {
    return child->object() == m_popup.view() ? 0 : -1;
}

QString AccessiblePopup::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? m_popup.currentText() : QAccessibleWidget::text(kind);
}

QStringList AccessiblePopup::actionNames() const {
    auto names = QAccessibleWidget::actionNames();
    if (m_popup.isEnabled())
        names = QStringList{showMenuAction(), pressAction()} + names;
    return names;
}

void AccessiblePopup::doAction(const QString& actionName) {
    if (actionName != showMenuAction() && actionName != pressAction())
        QAccessibleWidget::doAction(actionName);
    else if (!m_popup.isEnabled())
        return;
    else if (m_popup.view()->isVisible())
        m_popup.hidePopup();
    else
        m_popup.showPopup();
}

} // namespace vexa
