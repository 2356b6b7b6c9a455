#include "app/WindowSize.h"

#include "defaults/user_defaults.h"

#include <QScreen>

#include <algorithm>

namespace vexa {

namespace {

constexpr QSize frameAround{8, 40}; // the window manager's, whose size is not known yet
constexpr std::int64_t largest = 1 << 14;

int stored(const char* key, int otherwise) {
    const auto value = defaults::integer(key).value_or(otherwise);
    return static_cast<int>(std::clamp<std::int64_t>(value, 0, largest));
}

} // namespace

WindowSize::WindowSize(QWidget& window) : m_window(window) {
    const QSize standard = window.size().expandedTo(window.sizeHint());
    const QSize last(stored(defaults::windowWidthKey, standard.width()),
                     stored(defaults::windowHeightKey, standard.height()));
    const QSize room = window.screen()->availableSize() - frameAround;
    window.resize(last.expandedTo(window.minimumSizeHint()).boundedTo(room));
    m_atFirst = window.size();
}

WindowSize::~WindowSize() {
    const QSize size = m_window.isMaximized() ? m_window.normalGeometry().size() : m_window.size();
    if (size == m_atFirst)
        return;
    defaults::write({{defaults::windowWidthKey, qlonglong{size.width()}},
                     {defaults::windowHeightKey, qlonglong{size.height()}}});
}

} // namespace vexa
