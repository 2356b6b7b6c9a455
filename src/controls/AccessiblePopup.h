#pragma once

#include <QAccessibleWidget>
#include <QComboBox>

namespace vexa {

/// A pop-up list for assistive technology. It keeps its name, as every control does: Qt's own
/// interface uses the selected item instead.
class AccessiblePopup final : public QAccessibleWidget {
public:
    explicit AccessiblePopup(QComboBox& popup);

    /// For all pop-up lists of this process that are queried from now on.
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
