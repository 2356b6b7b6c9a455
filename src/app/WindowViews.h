#pragma once

#include "controls/ViewSwitches.h"

#include <QList>
#include <QPointer>

class QAction;
class QWidget;

namespace vexa {

class BigClock;
class RunPresenter;

/// Shows and hides what the View menu lists. The status line's visibility is kept in the settings.
class WindowViews final : public ViewSwitches {
    Q_OBJECT

public:
    /// The arguments must outlive this.
    WindowViews(QWidget& window, QWidget& statusLine);

    /// Call before the big clock is first shown. keys: the menu items whose shortcuts also work
    /// there.
    void setUp(RunPresenter& presenter, const QList<QAction*>& keys);

    bool isShown(std::uint64_t tag) const override;
    void setShown(std::uint64_t tag, bool shown) override;

private:
    void showBigClock();

    QWidget& m_window;
    QWidget& m_statusLine;
    RunPresenter* m_presenter = nullptr;
    QList<QAction*> m_keys;
    QPointer<BigClock> m_bigClock;
};

} // namespace vexa
