#pragma once

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace vexa {

/// A checkable button for assistive technology. Toggling it there clicks it: Qt's own interface
/// only changes the look, and the controller is not told.
class AccessibleButton final : public QAccessibleWidget {
public:
    explicit AccessibleButton(QAbstractButton& button);

    /// For all checkable buttons of this process that are queried from now on.
    static void install();

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    QAbstractButton& m_button;
};

} // namespace vexa
