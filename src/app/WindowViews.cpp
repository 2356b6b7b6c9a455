#include "app/WindowViews.h"

#include "app/BigClock.h"
#include "app/RunPresenter.h"
#include "defaults/user_defaults.h"

namespace vexa {

WindowViews::WindowViews(QWidget& window, QWidget& statusLine)
    : m_window(window), m_statusLine(statusLine) {
    m_statusLine.setVisible(defaults::read().showsStatusLine.value_or(true));
}

void WindowViews::setUp(RunPresenter& presenter, const QList<QAction*>& keys) {
    m_presenter = &presenter;
    m_keys = keys;
}

bool WindowViews::isShown(std::uint64_t tag) const {
    switch (tag) {
    case view::statusLine:
        return !m_statusLine.isHidden();
    case view::bigClock:
        return m_bigClock && m_bigClock->isVisible();
    default:
        return false;
    }
}

void WindowViews::setShown(std::uint64_t tag, bool shown) {
    if (tag == view::statusLine) {
        m_statusLine.setVisible(shown);
        defaults::write({.showsStatusLine = shown});
    } else if (tag == view::bigClock && shown) {
        showBigClock();
    } else if (tag == view::bigClock && m_bigClock) {
        m_bigClock->close();
    }
    Q_EMIT changed();
}

void WindowViews::showBigClock() {
    if (!m_bigClock) {
        m_bigClock = new BigClock(m_window, m_keys);
        connect(m_bigClock, &BigClock::closed, this, &ViewSwitches::changed);
        m_presenter->addDisplay(m_bigClock->display());
    }
    m_bigClock->open();
}

} // namespace vexa
