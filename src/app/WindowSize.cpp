#include "app/WindowSize.h"

#include "defaults/user_defaults.h"

#include <QScreen>

#include <algorithm>

namespace vexa {

namespace {

constexpr QSize frameAround{8, 40}; // an estimate of the window manager's frame
constexpr std::int64_t largest = 1 << 14;

int bounded(std::int64_t length) {
    return static_cast<int>(std::clamp<std::int64_t>(length, 0, largest));
}

} // namespace

WindowSize::WindowSize(QWidget& window) : m_window(window) {
    const QSize standard = window.size().expandedTo(window.sizeHint());
    const auto stored = defaults::read();
    const QSize last(bounded(stored.windowWidth.value_or(standard.width())),
                     bounded(stored.windowHeight.value_or(standard.height())));
    const QSize room = window.screen()->availableSize() - frameAround;
    window.resize(last.expandedTo(window.minimumSizeHint()).boundedTo(room));
    m_atFirst = window.size();
}

WindowSize::~WindowSize() {
    const QSize size = m_window.isMaximized() ? m_window.normalGeometry().size() : m_window.size();
    if (size != m_atFirst)
        defaults::write({.windowWidth = size.width(), .windowHeight = size.height()});
}

} // namespace vexa
