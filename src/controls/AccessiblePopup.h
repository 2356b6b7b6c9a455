#pragma once

#include <QAccessibleWidget>
#include <QComboBox>

namespace vexa {

/// What assistive technology sees of a pop-up list. Its name stays, as that of every control: Qt's
/// own counterpart goes by the item that is selected.
class AccessiblePopup final : public QAccessibleWidget {
public:
    explicit AccessiblePopup(QComboBox& popup);

    /// For all pop-up lists of this process that are asked for from now on.
    static void install();

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    QComboBox& m_popup;
};

} // namespace vexa
