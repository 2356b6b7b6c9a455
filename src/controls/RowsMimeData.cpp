#include "controls/RowsMimeData.h"

#include "controls/clipboard_text.h"
#include "interchange/delimited_rows.h"

#include <iterator>
#include <memory>

namespace vexa {

namespace {

const QString tabText = QStringLiteral("text/tab-separated-values");
const QString commaText = QStringLiteral("text/csv");
const QString plainTextType = QStringLiteral("text/plain");

} // namespace

RowsMimeData::RowsMimeData(const BatchItems& items) {
    m_items.reserve(items.size());
    for (const auto& item : items)
        m_items.push_back(std::make_shared<BatchItem>(*item));
}

QStringList RowsMimeData::formats() const { return {tabText, commaText, plainTextType}; }

bool RowsMimeData::hasFormat(const QString& mimeType) const { return formats().contains(mimeType); }

QVariant RowsMimeData::retrieveData(const QString& mimeType, QMetaType type) const {
    if (!hasFormat(mimeType))
        return {};
    const auto text = delimitedText(m_items, mimeType == commaText ? u',' : u'\t');
    return type.id() == QMetaType::QString ? QVariant(text) : QVariant(text.toUtf8());
}

OfferedText RowsMimeData::rowsText(const QMimeData& data) {
    constexpr qsizetype usualRow = 80; // characters
    if (const auto* own = qobject_cast<const RowsMimeData*>(&data))
        return {usualRow * std::ssize(own->m_items),
                [items = own->m_items] { return delimitedText(items, u'\t'); }};
    auto text = clipboardText(data, {tabText, commaText});
    return {text.size(), [text] { return text; }};
}

} // namespace vexa
