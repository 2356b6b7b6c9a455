#include "controls/RecentFiles.h"

#include "defaults/user_defaults.h"
#include "document/recently_used.h"

#include <QFileInfo>

#include <chrono>
#include <utility>

namespace vexa {

RecentFiles::RecentFiles() {
    using namespace std::chrono_literals;
    m_background.setMaxThreadCount(1);
    m_later.setSingleShot(true);
    m_later.setInterval(1s); // lets the window open before a file opened at launch is recorded
    QObject::connect(&m_later, &QTimer::timeout, [this] { tellDesktop(); });
}

RecentFiles::~RecentFiles() { tellDesktop(); }

void RecentFiles::noteNewRecentDocument(const QString& path) {
    const auto absolute = QFileInfo(path).absoluteFilePath();
    if (!m_untold.contains(absolute))
        m_untold += absolute;
    m_later.start();

    const auto before = paths();
    auto after = before;
    after.removeAll(absolute);
    after.prepend(absolute);
    after = after.mid(0, most);
    if (after != before)
        defaults::write({.recentFiles = after});
}

QStringList RecentFiles::paths() const {
    return defaults::read().recentFiles.value_or(QStringList());
}

void RecentFiles::clear() { defaults::write({.recentFiles = QStringList()}); }

void RecentFiles::tellDesktop() {
    if (!m_untold.isEmpty())
        m_background.start([paths = std::exchange(m_untold, {}), list = recentlyUsedFile()] {
            addToRecentlyUsed(paths, list);
        });
}

} // namespace vexa
