#pragma once

#include "engine/outlets.h"

#include <QStringList>
#include <QThreadPool>
#include <QTimer>

namespace vexa {

/// The batch lists opened last, kept across launches, and also entered into the list that the
/// desktop's programs share. That one may be long: it is written in the background, somewhat
/// later, at the latest when this goes.
class RecentFiles final : public RecentDocuments {
public:
    static constexpr qsizetype most = 10;

    RecentFiles();
    ~RecentFiles() override;

    void noteNewRecentDocument(const QString& path) override;
    /// Absolute, newest first, each once; whether or not the files are still there.
    QStringList paths() const;
    /// Empties the list, not the desktop's.
    void clear();

private:
    void tellDesktop();

    QStringList m_untold; ///< noted, but not yet in the desktop's list
    QTimer m_later;
    QThreadPool m_background;
};

} // namespace vexa
