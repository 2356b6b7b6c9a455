#pragma once

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QString>

namespace vexa {

/// A widget to be read. Its text is its accessible description.
class Reading {
public:
    virtual ~Reading() = default;
    virtual QString reading() const = 0;
};

/// A Reading for assistive technology: a label, or a button that can be pressed. Its text can be
/// queried at any time, but only tellReading() announces a change: a screen reader cannot keep up
/// with every frame.
class AccessibleReading final : public QAccessibleWidget {
public:
    AccessibleReading(QWidget& widget, const Reading& reading);

    /// For all readings of this process that are queried from now on.
    static void install();

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    const Reading& m_reading;
    QAbstractButton* m_button; ///< null if the widget is not a button
};

/// Tells assistive technology that the widget's text has changed.
void tellReading(QWidget& widget);

} // namespace vexa
