#include "document/ListDocument.h"

#include "batch/VexaBatchStripeData.h"
#include "document/list_file.h"

#include <QFileInfo>

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
    m_list.replaceBatchList(readListFile(path));
    tieTo(path, true);
    retitle();
}

bool ListDocument::save(const QString& path) {
    const bool written = writeListFile(path, m_list.batchList());
    tieTo(path, true, written);
    return written;
}

QString ListDocument::unwrittenFile() const {
    return m_written ? QString() : QFileInfo(m_url).fileName();
}

void ListDocument::tieTo(const QString& path, bool toFile, bool written) {
    m_written = written;
    m_dirty = false;
    m_previouslySaved = toFile;
    m_url = path;
}

} // namespace vexa
