#pragma once

#include "engine/outlets.h"

#include <QStringList>
#include <QThreadPool>
#include <QTimer>

namespace vexa {

/// The batch lists opened last, kept across launches, and also added to the list that the desktop's
/// programs share. That list may be long: it is written in the background after a delay, at the
/// latest on destruction.
class RecentFiles final : public RecentDocuments {
public:
    static constexpr qsizetype most = 10;

    RecentFiles();
    ~RecentFiles() override;

    void noteNewRecentDocument(const QString& path) override;
    /// Absolute, newest first, without duplicates; the files need not exist.
    QStringList paths() const;
    /// Clears this list, not the desktop's.
    void clear();

private:
    void tellDesktop();

    QStringList m_untold; ///< not yet in the desktop's list
    QTimer m_later;
    QThreadPool m_background;
};

} // namespace vexa
