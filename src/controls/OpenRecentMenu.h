#pragma once

#include <QMenu>

namespace vexa {

class RecentFiles;

/// The batch lists opened last, newest first, and an item that clears the menu. Filled when it
/// opens. A missing file is shown but disabled: the open list is not given up for one that cannot
/// be opened.
class OpenRecentMenu : public QMenu {
    Q_OBJECT

public:
    /// The files must outlive this.
    OpenRecentMenu(RecentFiles& files, QWidget* parent);

Q_SIGNALS:
    void chosen(const QString& path);

private:
    void fill();
    void choose(const QString& path);

    RecentFiles& m_files;
};

} // namespace vexa
