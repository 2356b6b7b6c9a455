#pragma once

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QString>

namespace vexa {

/// A widget that is there to be read. What it says is its accessible description.
class Reading {
public:
    virtual ~Reading() = default;
    virtual QString reading() const = 0;
};

/// What assistive technology sees of a Reading: a label, or a button that can be pressed. It can
/// ask what the widget says at any moment, but hears of a change only by tellReading(): a reader
/// that spoke of every frame would never come to an end.
class AccessibleReading final : public QAccessibleWidget {
public:
    AccessibleReading(QWidget& widget, const Reading& reading);

    /// For all readings of this process that are asked for from now on.
    static void install();

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    const Reading& m_reading;
    QAbstractButton* m_button; ///< null for what is none
};

/// Tells assistive technology that the widget says something else now.
void tellReading(QWidget& widget);

} // namespace vexa
