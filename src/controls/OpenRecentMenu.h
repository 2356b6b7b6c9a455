#pragma once

#include <QMenu>

namespace vexa {

class RecentFiles;

/// The batch lists opened last, newest first, and an item that clears the menu. It is filled when
/// it opens. A file that is gone is shown, but cannot be chosen: the list at hand is not given up
/// for one that cannot come.
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
