#include "document/recently_used.h"

#include "files/atomic_file.h"
#include "files/regular_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <glib.h>

#include <memory>

namespace vexa {

namespace {

struct FreeBookmarks {
    void operator()(GBookmarkFile* bookmarks) const { g_bookmark_file_free(bookmarks); }
};
using Bookmarks = std::unique_ptr<GBookmarkFile, FreeBookmarks>;

struct FreeText {
    void operator()(char* text) const { g_free(text); }
};
using Text = std::unique_ptr<char, FreeText>;

/// Null if the file exists but is no bookmark file of reasonable size.
Bookmarks readBookmarks(const QString& listFile) {
    constexpr qsizetype limit = 16 << 20; // far larger than desktops let it grow
    Bookmarks bookmarks(g_bookmark_file_new());
    if (!QFile::exists(listFile))
        return bookmarks;
    const auto bytes = readRegularFile(listFile, limit);
    const bool isRead =
        bytes && g_bookmark_file_load_from_data(bookmarks.get(), bytes->constData(),
                                                static_cast<gsize>(bytes->size()), nullptr);
    return isRead ? std::move(bookmarks) : nullptr;
}

void add(GBookmarkFile& bookmarks, const QString& path) {
    const Text uri(g_filename_to_uri(QFile::encodeName(path).constData(), nullptr, nullptr));
    if (!uri)
        return;
    g_bookmark_file_set_mime_type(&bookmarks, uri.get(), "application/x-vexa-batch-list");
    g_bookmark_file_add_application(&bookmarks, uri.get(), "Vexa Remote", "vexa-remote %u");
}

} // namespace

QString recentlyUsedFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/recently-used.xbel");
}

bool addToRecentlyUsed(const QStringList& paths, const QString& listFile) {
    const auto bookmarks = readBookmarks(listFile);
    if (!bookmarks)
        return false;
    for (const auto& path : paths)
        add(*bookmarks, path);
    gsize size = 0;
    const Text text(g_bookmark_file_to_data(bookmarks.get(), &size, nullptr));
    constexpr mode_t privately = 0600; // recent work is private
    return text && QDir().mkpath(QFileInfo(listFile).path()) &&
           replaceFile(listFile, QByteArray::fromRawData(text.get(), static_cast<qsizetype>(size)),
                       privately);
}

} // namespace vexa
