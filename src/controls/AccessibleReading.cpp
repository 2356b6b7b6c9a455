#include "controls/AccessibleReading.h"

namespace vexa {

namespace {

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const auto* reading = dynamic_cast<const Reading*>(object);
    return widget && reading ? new AccessibleReading(*widget, *reading) : nullptr;
}

} // namespace

AccessibleReading::AccessibleReading(QWidget& widget, const Reading& reading)
    : QAccessibleWidget(&widget, qobject_cast<QAbstractButton*>(&widget) ? QAccessible::Button
                                                                         : QAccessible::StaticText),
      m_reading(reading),
      m_button(qobject_cast<QAbstractButton*>(&widget)) {}

void AccessibleReading::install() { QAccessible::installFactory(interfaceOf); }

QString AccessibleReading::text(QAccessible::Text kind) const {
    return kind == QAccessible::Description ? m_reading.reading() : QAccessibleWidget::text(kind);
}

QStringList AccessibleReading::actionNames() const {
    const auto names = QAccessibleWidget::actionNames();
    return m_button && m_button->isEnabled() ? QStringList{pressAction()} + names : names;
}

void AccessibleReading::doAction(const QString& actionName) {
    if (m_button && actionName == pressAction())
        m_button->click();
    else
        QAccessibleWidget::doAction(actionName);
}

void tellReading(QWidget& widget) {
    QAccessibleEvent change(&widget, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&change);
}

} // namespace vexa
