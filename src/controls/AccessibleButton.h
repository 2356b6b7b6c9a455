#pragma once

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace vexa {

/// What assistive technology sees of a button that stays down. Toggling it there is a click: Qt's
/// own counterpart changes the look alone, and the controller would never hear of it.
class AccessibleButton final : public QAccessibleWidget {
public:
    explicit AccessibleButton(QAbstractButton& button);

    /// For all checkable buttons of this process that are asked for from now on.
    static void install();

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    QAbstractButton& m_button;
};

} // namespace vexa
