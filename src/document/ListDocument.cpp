#include "document/ListDocument.h"

#include "batch/VexaBatchStripeData.h"
#include "document/list_file.h"

#include <QFileInfo>

#include <utility>

namespace vexa {

void ListDocument::retitle() {
    m_fileTitle = m_url.isNull() ? QStringLiteral("Untitled Batch List")
                                 : QFileInfo(m_url).fileName().section(QLatin1Char('.'), 0, 0);
}

void ListDocument::clear() {
    m_list.clearBatchList();
    tieTo({}, false);
    retitle();
}

void ListDocument::open(const QString& path) {
    m_list.clearBatchList(); // two long lists at once would take twice the memory
    auto items = listInFile(path);
    const auto trouble = items ? FileTrouble::none : FileTrouble::unread;
    m_list.replaceBatchList(std::move(items).value_or(BatchItems()));
    tieTo(path, true, trouble);
    retitle();
}

bool ListDocument::save(const QString& path) {
    const bool written = writeListFile(path, m_list.batchList());
    tieTo(path, true, written ? FileTrouble::none : FileTrouble::unwritten);
    return written;
}

void ListDocument::tieTo(const QString& path, bool toFile, FileTrouble trouble) {
    m_fileTrouble = trouble;
    m_dirty = false;
    m_previouslySaved = toFile;
    m_url = path;
}

} // namespace vexa
