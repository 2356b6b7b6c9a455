#include "controls/OpenRecentMenu.h"

#include "controls/RecentFiles.h"
#include "controls/plain_text.h"

#include <QFileInfo>

#include <algorithm>

namespace vexa {

namespace {

/// The file name, with its folder if another path has the same file name.
QString distinctName(const QFileInfo& file, const QStringList& paths) {
    const auto isNamesake = [&](const QString& path) {
        return QFileInfo(path).fileName() == file.fileName();
    };
    if (std::ranges::count_if(paths, isNamesake) < 2)
        return file.fileName();
    return QObject::tr("%1 — %2").arg(file.fileName(), file.path());
}

} // namespace

OpenRecentMenu::OpenRecentMenu(RecentFiles& files, QWidget* parent)
    : QMenu(parent), m_files(files) {
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &OpenRecentMenu::fill);
}

void OpenRecentMenu::fill() {
    clear();
    const auto paths = m_files.paths();
    for (const auto& path : paths) {
        const QFileInfo file(path);
        const bool isThere = file.isFile();
        const auto name = plainMenuText(distinctName(file, paths));
        auto* item = addAction(isThere ? name : tr("%1 (not found)").arg(name));
        item->setEnabled(isThere);
        setPlainToolTip(*item, path);
        connect(item, &QAction::triggered, this, [this, path] { choose(path); });
    }
    addSeparator();
    auto* clearMenu = addAction(tr("&Clear Menu"));
    clearMenu->setEnabled(!paths.isEmpty());
    connect(clearMenu, &QAction::triggered, this, [this] { m_files.clear(); });
}

void OpenRecentMenu::choose(const QString& path) {
    if (QFileInfo(path).isFile()) // it may have been deleted since the menu was filled
        Q_EMIT chosen(path);
}

} // namespace vexa
