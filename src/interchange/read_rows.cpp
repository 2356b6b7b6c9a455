#include "interchange/read_rows.h"

#include "batch/VexaBatchStripeData.h"
#include "files/regular_file.h"
#include "interchange/delimited_rows.h"
#include "interchange/edit_list_reader.h"
#include "interchange/text_encoding.h"

#include <QFileInfo>

#include <memory>

namespace vexa {

namespace {

QString reasonNotToRead(const QFileInfo& file) {
    if (!file.exists())
        return QStringLiteral("there is no such file");
    if (!file.isFile())
        return QStringLiteral("it is not a regular file");
    if (file.size() > mostBytes)
        return QStringLiteral("it is longer than %1 MiB").arg(mostBytes >> 20);
    return QStringLiteral("it cannot be read");
}

} // namespace

ReadRows readRows(const QString& text, const ReadingOptions& options) {
    return isEditList(text) ? readEditList(text, options) : readDelimitedRows(text, options);
}

FileText readTextFile(const QString& path) {
    const auto bytes = readRegularFile(path, mostBytes);
    if (!bytes)
        return {{}, reasonNotToRead(QFileInfo(path))};
    return {decodedText(*bytes), {}};
}

BatchItems itemsOfRows(const ReadRows& read, VexaBatchStripeData& list) {
    BatchItems items;
    items.reserve(read.rows.size());
    for (const auto& [line, reel, title, settings] : read.rows) {
        const auto& [start, stop, rate, type] = settings;
        items.push_back(std::make_shared<BatchItem>(
            BatchItem{reel, title, start, stop, rate, type, list.nextItemID()}));
    }
    return items;
}

} // namespace vexa
