#pragma once

#include "controls/DisplayPanel.h"

#include <QMainWindow>

namespace vexa {

/// The clock and the state of the run in full screen, on another screen than the window's if there
/// is one. Escape and F11 close it; the transport's keys work in it.
class BigClock : public QMainWindow {
    Q_OBJECT

public:
    /// keys: the menu items whose shortcuts also work in it.
    BigClock(QWidget& window, const QList<QAction*>& keys);

    DisplayPanel& display() { return m_display; }
    void open();

Q_SIGNALS:
    void closed();

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget& m_window;
    DisplayPanel& m_display;
};

} // namespace vexa
